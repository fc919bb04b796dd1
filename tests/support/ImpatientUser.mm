#import "tests/support/ImpatientUser.h"

#include <utility>

#include "tests/support/Events.h"

/// What a timer can message.
@interface ImpatientUserTarget : NSObject {
 @public
  ImpatientUser *user;
}
- (void)look:(NSTimer *)timer;
@end

@implementation ImpatientUserTarget
- (void)look:(NSTimer *)timer {
  (void)timer;
  user->look();
}
@end

namespace {

constexpr NSTimeInterval kLookEverySeconds = 0.02;

}  // namespace

ImpatientUser::ImpatientUser(NSWindow *window, NSString *keys, std::function<bool()> when)
    : window_([window retain]), keys_([keys copy]), when_(std::move(when)) {
  ImpatientUserTarget *const target = [[[ImpatientUserTarget alloc] init] autorelease];
  target->user = this;
  timer_ = [NSTimer timerWithTimeInterval:kLookEverySeconds
                                   target:target
                                 selector:@selector(look:)
                                 userInfo:nil
                                  repeats:YES];
  [[NSRunLoop currentRunLoop] addTimer:timer_ forMode:NSConnectionReplyMode];
}

ImpatientUser::~ImpatientUser() {
  [timer_ invalidate];
  [window_ release];
  [keys_ release];
}

void ImpatientUser::look() {
  if (hasTyped_ || !when_()) return;
  hasTyped_ = true;
  postKeys(window_, keys_);
}
