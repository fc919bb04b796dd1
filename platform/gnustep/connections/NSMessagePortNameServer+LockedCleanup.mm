#import <Foundation/Foundation.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

// A process that is about to look up its first name goes through all names first and removes those
// of processes that have ended, and those that are not whole. The platform does that without the
// lock of the names. So it may take away the name of a program that is just being restarted, or has
// just begun to write it: that program then is registered, as far as it knows, and can be reached
// by nobody. Here it is done with the lock, as everything else about names is.

/// Not in the platform's headers.
@interface NSMessagePortNameServer (Lock)
+ (NSDistributedLock *)_fileLock;
@end

@interface NSMessagePortNameServer (LockedCleanup)
@end

namespace {

/// Each waits two seconds; a lock that has been left behind is broken when it is 15 seconds old.
constexpr int kTries = 9;

constinit platform::ReplacedMethod<void()> platformInitialize;

void initialize(id cls, SEL selector) {
  NSDistributedLock *lock = nil;
  @autoreleasepool {
    const bool isSweeping = cls == objc_getClass("NSMessagePortNameServer");
    for (int i = 0; isSweeping && lock == nil && i < kTries; ++i) {
      lock = [[NSMessagePortNameServer _fileLock] retain];
    }
    platformInitialize(cls, selector);
    [lock unlock];
    [lock release];
  }
}

}  // namespace

@implementation NSMessagePortNameServer (LockedCleanup)

+ (void)load {
  platformInitialize.install(object_getClass(self), @selector(initialize), initialize);
}

@end
