#import "tests/support/AlertUser.h"

#include <algorithm>

#include "tests/support/Strings.h"

/// What a timer can message.
@interface AlertUserTarget : NSObject {
 @public
  AlertUser *user;
}
- (void)look:(NSTimer *)timer;
@end

@implementation AlertUserTarget
- (void)look:(NSTimer *)timer {
  (void)timer;
  user->look();
}
@end

namespace {

constexpr NSTimeInterval kLookEverySeconds = 0.02;

void collect(NSView *view, std::vector<std::string> &texts, NSButton *&button) {
  if ([view isKindOfClass:[NSButton class]]) {
    if (button == nil && [[(NSButton *)view keyEquivalent] isEqualToString:@"\r"]) {
      button = (NSButton *)view;
    }
  } else if ([view isKindOfClass:[NSTextField class]]) {
    texts.push_back(text([(NSTextField *)view stringValue]));
  }
  for (NSView *subview in [view subviews]) collect(subview, texts, button);
}

}  // namespace

bool SeenAlert::shows(const std::string &wanted) const {
  return std::find(texts.begin(), texts.end(), wanted) != texts.end();
}

AlertUser::AlertUser(std::function<void()> whileOpen) : whileOpen_(std::move(whileOpen)) {
  AlertUserTarget *const target = [[[AlertUserTarget alloc] init] autorelease];
  target->user = this;
  timer_ = [NSTimer timerWithTimeInterval:kLookEverySeconds
                                   target:target
                                 selector:@selector(look:)
                                 userInfo:nil
                                  repeats:YES];
  [[NSRunLoop currentRunLoop] addTimer:timer_ forMode:NSModalPanelRunLoopMode];
}

AlertUser::~AlertUser() {
  [timer_ invalidate];
}

void AlertUser::look() {
  NSWindow *const window = [NSApp modalWindow];
  if (window == nil || ![window isVisible]) return;
  SeenAlert alert;
  NSButton *button = nil;
  collect([window contentView], alert.texts, button);
  if (button == nil) return;
  alerts_.push_back(alert);
  whileOpen_();
  [button performClick:nil];
}
