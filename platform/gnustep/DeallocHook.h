#pragma once

#import <Foundation/Foundation.h>

/// What is to happen when an object ends. On the Mac the runtime clears what refers weakly to an
/// object that goes away; this runtime has no such thing.
using EndOfObject = void (*)(id object);

/// From now on every object of exactly this class gives itself to `atEnd` at the beginning of its
/// dealloc, on the thread that ends it. Adding the same one to a class again, or to one of its
/// superclasses, is harmless: `atEnd` then sees an object more than once. Any thread.
void addDeallocHook(Class cls, EndOfObject atEnd);
