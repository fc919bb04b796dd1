#import "tests/support/AlertUser.h"

#import <objc/runtime.h>

#include <algorithm>

#include "tests/support/Strings.h"

namespace {

/// How many modal sessions this process has begun, which distinguishes two alerts in a row, since
/// they use the same window.
int modalSessions = 0;

/// Whether there was a key or click in the queue when the newest of them began.
bool newestFoundInput = false;

NSModalSession (*formerBegin)(id, SEL, NSWindow *);

NSModalSession countingBegin(id self, SEL selector, NSWindow *window) {
  ++modalSessions;
  newestFoundInput = [NSApp nextEventMatchingMask:NSKeyDownMask | NSLeftMouseDownMask
                                        untilDate:[NSDate distantPast]
                                           inMode:NSEventTrackingRunLoopMode
                                          dequeue:NO] != nil;
  return formerBegin(self, selector, window);
}

void countModalSessions() {
  if (formerBegin != nullptr) return;
  const SEL selector = @selector(beginModalSessionForWindow:);
  // In the class of the application object itself, which may override a superclass's method.
  const Class cls = object_getClass(NSApp);
  const Method method = class_getInstanceMethod(cls, selector);
  formerBegin = reinterpret_cast<decltype(formerBegin)>(method_getImplementation(method));
  class_addMethod(cls, selector, reinterpret_cast<IMP>(countingBegin),
                  method_getTypeEncoding(method));
}

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

AlertUser::AlertUser(std::function<void()> whileOpen)
    : whileOpen_(std::move(whileOpen)), timer_(NSModalPanelRunLoopMode, [this] { look(); }) {
  countModalSessions();
  session_ = modalSessions;
}

void AlertUser::look() {
  NSWindow *const window = [NSApp modalWindow];
  if (window == nil || ![window isVisible]) return;
  SeenAlert alert;
  NSButton *button = nil;
  collect([window contentView], alert.texts, button);
  if (button == nil) return;
  if (session_ != modalSessions) {
    session_ = modalSessions;
    alert.foundInput = newestFoundInput;
    alerts_.push_back(alert);
    whileOpen_();
  }
  // Repeatedly, because a modal loop does not always notice a click that a timer makes.
  [button performClick:nil];
}
