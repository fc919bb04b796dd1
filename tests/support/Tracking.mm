#import "tests/support/Tracking.h"

/// Fires in the mode for tracking, and there only.
@interface TrackingTimer : NSObject {
 @private
  TrackingSteps *_steps;
  NSTimer *_timer;
}
- (id)initWithSteps:(TrackingSteps *)steps;
- (void)invalidate;
@end

@implementation TrackingTimer

- (id)initWithSteps:(TrackingSteps *)steps {
  constexpr NSTimeInterval kStepSeconds = 0.01;
  if ((self = [super init])) {
    _steps = steps;
    _timer = [NSTimer timerWithTimeInterval:kStepSeconds
                                     target:self
                                   selector:@selector(fire:)
                                   userInfo:nil
                                    repeats:YES];
    [[NSRunLoop currentRunLoop] addTimer:_timer forMode:NSEventTrackingRunLoopMode];
  }
  return self;
}

- (void)invalidate {
  [_timer invalidate];
  _timer = nil;
  _steps = nullptr;
}

- (void)fire:(NSTimer *)timer {
  (void)timer;
  if (_steps != nullptr) _steps->takeNext();
}

@end

TrackingSteps::TrackingSteps(std::vector<std::function<void()>> steps)
    : steps_(std::move(steps)), timer_([[TrackingTimer alloc] initWithSteps:this]) {}

TrackingSteps::~TrackingSteps() {
  [timer_ invalidate];
  [timer_ release];
}

void TrackingSteps::takeNext() {
  if (taken_ == steps_.size()) return;
  steps_[taken_++]();
}
