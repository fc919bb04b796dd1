#import "agent/BackgroundRequestLock.h"

#import <Foundation/Foundation.h>

#include "agent/ConnectionAttempt.h"

/// What a platform has whose connections lose replies where several threads use them. Foundation on
/// the Mac does not, and has neither method: hence looked for at run time.
@interface NSConnection (BackgroundTurns)
+ (BOOL)beginTurnOfThreadWithin:(NSTimeInterval)seconds;
+ (void)endTurnOfThread;
@end

namespace agent {

namespace {

bool platformNeedsTurns() {
  return [NSConnection respondsToSelector:@selector(beginTurnOfThreadWithin:)];
}

}  // namespace

BackgroundRequestLock::BackgroundRequestLock()
    : isNeeded_(![NSThread isMainThread] && platformNeedsTurns()),
      isHeld_(!isNeeded_ || [NSConnection beginTurnOfThreadWithin:kConnectionDeadlineSeconds]) {}

BackgroundRequestLock::~BackgroundRequestLock() {
  if (isNeeded_ && isHeld_) [NSConnection endTurnOfThread];
}

}  // namespace agent
