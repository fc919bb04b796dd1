#import <Foundation/Foundation.h>

#include <sys/stat.h>

#include <cerrno>

#import "platform/gnustep/runtime/MethodReplacement.h"

// The names of connections are protected by a folder that is made to take the lock. Where it is
// there the platform looks again, and if another process gives the lock back and a third one takes
// it meanwhile, it logs that the folder could not be made.

@interface NSDistributedLock (Contention)
@end

namespace {

constinit platform::ReplacedMethod<BOOL()> platformTryLock;

constexpr mode_t kPermissions = 0755;

}  // namespace

@implementation NSDistributedLock (Contention)

+ (void)load {
  platformTryLock.install(self, @selector(tryLock), @selector(tryLockOnce));
}

- (BOOL)tryLockOnce {
  [_localLock lock];
  const bool wasLocked = _lockTime != nil;
  const char *const path = [_lockPath fileSystemRepresentation];
  const int error = wasLocked || mkdir(path, kPermissions) == 0 ? 0 : errno;
  if (!wasLocked && error == 0) {
    NSFileManager *const manager = [NSFileManager defaultManager];
    NSDictionary *const attributes = [manager fileAttributesAtPath:_lockPath traverseLink:YES];
    // Nil where another process has broken the lock already.
    _lockTime = [[attributes fileModificationDate] retain];
  }
  const BOOL isLocked = _lockTime != nil;
  [_localLock unlock];
  // The platform raises for a lock of its own, and makes the folders that are missing.
  return wasLocked || (error != 0 && error != EEXIST) ? platformTryLock(self, _cmd) : isLocked;
}

@end
