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

bool platformNeedsLock() {
  return [NSConnection respondsToSelector:@selector(lockForBackgroundThreadWithTimeout:)];
}

}  // namespace

BackgroundRequestLock::BackgroundRequestLock()
    : isNeeded_(![NSThread isMainThread] && platformNeedsLock()),
      isHeld_(!isNeeded_ ||
              [NSConnection lockForBackgroundThreadWithTimeout:kConnectionDeadlineSeconds]) {}

BackgroundRequestLock::~BackgroundRequestLock() {
  if (isNeeded_ && isHeld_) [NSConnection unlockForBackgroundThread];
}

}  // namespace agent
