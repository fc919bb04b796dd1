#pragma once

#import <Foundation/Foundation.h>

/// Called with an object at the beginning of its dealloc. On the Mac the runtime clears weak
/// references to an object that is deallocated; this runtime has none.
using DeallocAction = void (*)(id object);

/// From now on `action` is called for every object of the class, on the thread that deallocates it.
/// Where the class has no dealloc of its own, also for objects of other classes that inherit the
/// same one. `action` may be called more than once for an object. Adding the same one again has no
/// effect. Any thread.
void addDeallocHook(Class cls, DeallocAction action);
