#include "tests/support/DelayedCall.h"

#include <utility>

/// What a timer can message.
@interface DelayedCallTarget : NSObject {
 @public
  std::function<void()> call;
}
- (void)fire:(NSTimer *)timer;
@end

@implementation DelayedCallTarget
- (void)fire:(NSTimer *)timer {
  (void)timer;
  call();
}
@end

DelayedCall::DelayedCall(NSTimeInterval seconds, std::function<void()> call) {
  DelayedCallTarget *const target = [[[DelayedCallTarget alloc] init] autorelease];
  target->call = std::move(call);
  timer_ = [[NSTimer scheduledTimerWithTimeInterval:seconds
                                             target:target
                                           selector:@selector(fire:)
                                           userInfo:nil
                                            repeats:NO] retain];
}

DelayedCall::~DelayedCall() {
  [timer_ invalidate];
  [timer_ release];
}
