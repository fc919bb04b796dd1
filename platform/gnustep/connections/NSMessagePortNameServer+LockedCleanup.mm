#import <Foundation/Foundation.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

// Before its first look-up a process removes the names of processes that have exited, and files
// that are incomplete. The platform does that in +initialize without the lock for names, so it may
// remove the name of a program that is just writing it, and that program cannot be reached from
// then on. Here the lock is held meanwhile, as for every other access to names.

/// Not in the platform's headers.
@interface NSMessagePortNameServer (Lock)
+ (NSDistributedLock *)_fileLock;
@end

@interface NSMessagePortNameServer (LockedCleanup)
@end

namespace {

/// Each try waits two seconds, and a lock that was left behind is broken after 15 seconds.
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
