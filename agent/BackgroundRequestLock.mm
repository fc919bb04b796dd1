#import "agent/BackgroundRequestLock.h"

#import <Foundation/Foundation.h>

#include "agent/ConnectionAttempt.h"

/// What a platform has whose connections lose replies where several threads use them. Foundation on
/// the Mac does not, and has neither method: hence looked for at run time.
@interface NSConnection (BackgroundLock)
+ (BOOL)lockForBackgroundThreadWithTimeout:(NSTimeInterval)seconds;
+ (void)unlockForBackgroundThread;
@end

namespace agent {

namespace {

/// The same for both halves of a request, since neither changes.
bool needsLock() {
  return ![NSThread isMainThread] &&
         [NSConnection respondsToSelector:@selector(lockForBackgroundThreadWithTimeout:)];
}

}  // namespace

bool lockBackgroundRequests() {
  return !needsLock() ||
         [NSConnection lockForBackgroundThreadWithTimeout:kConnectionDeadlineSeconds];
}

void unlockBackgroundRequests() {
  if (needsLock()) [NSConnection unlockForBackgroundThread];
}

}  // namespace agent
