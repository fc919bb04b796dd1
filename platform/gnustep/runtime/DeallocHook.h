#pragma once

#import <Foundation/Foundation.h>

/// What is to happen when an object ends. On the Mac the runtime clears what refers weakly to an
/// object that goes away; this runtime has no such thing.
using DeallocAction = void (*)(id object);

/// From now on every object of this class gives itself to `atEnd` at the beginning of its dealloc,
/// on the thread that ends it. So do the objects of other classes that share the dealloc, where the
/// class has none of its own, and `atEnd` may see an object more than once. Adding the same one
/// again is harmless. Any thread.
void addDeallocHook(Class cls, DeallocAction atEnd);
