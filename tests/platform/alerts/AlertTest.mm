#import "tests/platform/alerts/AlertTest.h"

#include "tests/support/Strings.h"

namespace {

bool eventsArePending() {
  return [NSApp nextEventMatchingMask:NSAnyEventMask
                            untilDate:[NSDate distantPast]
                               inMode:NSModalPanelRunLoopMode
                              dequeue:NO] != nil;
}

void collect(NSView *view, Class viewClass, NSMutableArray *views) {
  if ([view isKindOfClass:viewClass]) [views addObject:view];
  for (NSView *subview in [view subviews]) collect(subview, viewClass, views);
}

}  // namespace

ModalUser::ModalUser(std::vector<std::function<void(NSWindow *)>> steps)
    : steps_(std::move(steps)), timer_(NSModalPanelRunLoopMode, [this] { look(); }) {}

void ModalUser::look() {
  NSWindow *const window = [NSApp modalWindow];
  if (![window isVisible] || eventsArePending()) return;
  if (next_ < steps_.size()) {
    steps_[next_++](window);
  } else if (++looksAfterLast_ > kLooksUntilAborted) {
    [NSApp abortModal];
    // The modal loop checks its state only after an event.
    postKeys(window, @"x");
  }
}

AlertTest::~AlertTest() {
  [alert release];
}

void AlertTest::begin(SEL didEnd) {
  [alert beginSheetModalForWindow:parent
                    modalDelegate:delegate
                   didEndSelector:didEnd
                      contextInfo:this];
}

NSArray *viewsOfClass(NSWindow *window, Class viewClass) {
  NSMutableArray *const views = [NSMutableArray array];
  collect([window contentView], viewClass, views);
  return views;
}

std::string shownTexts(NSWindow *window) {
  NSMutableArray *const texts = [NSMutableArray array];
  for (NSTextField *field in viewsOfClass(window, [NSTextField class])) {
    if ([[field stringValue] length] > 0) [texts addObject:[field stringValue]];
  }
  return text([texts componentsJoinedByString:@"|"]);
}

bool isReachable(NSButton *button) {
  NSView *const content = [[button window] contentView];
  const NSRect frame = [button convertRect:[button bounds] toView:content];
  const NSPoint middle = NSMakePoint(NSMidX(frame), NSMidY(frame));
  return NSContainsRect([content bounds], frame) &&
         [content hitTest:[content convertPoint:middle toView:[content superview]]] == button;
}
