#include "tests/support/RepeatingTimer.h"

#include <utility>

/// What a timer can message.
@interface RepeatingTimerTarget : NSObject {
 @public
  std::function<void()> fire;
}
- (void)fire:(NSTimer *)timer;
@end

@implementation RepeatingTimerTarget
- (void)fire:(NSTimer *)timer {
  (void)timer;
  fire();
}
@end

namespace {

constexpr NSTimeInterval kIntervalSeconds = 0.02;

}  // namespace

RepeatingTimer::RepeatingTimer(NSString *mode, std::function<void()> fire) {
  RepeatingTimerTarget *const target = [[[RepeatingTimerTarget alloc] init] autorelease];
  target->fire = std::move(fire);
  timer_ = [NSTimer timerWithTimeInterval:kIntervalSeconds
                                   target:target
                                 selector:@selector(fire:)
                                 userInfo:nil
                                  repeats:YES];
  [[NSRunLoop currentRunLoop] addTimer:timer_ forMode:mode];
}

RepeatingTimer::~RepeatingTimer() {
  [timer_ invalidate];
}
