#import "windows/Controls.h"

#import "text/LocalizedText.h"

BOOL isChecked(NSButton *box) {
  return [box state] == NSOnState;
}

NSString *chosenDownloads(NSPopUpButton *numbers) {
  NSString *const title = [numbers titleOfSelectedItem];
  return [title isEqualToString:localizedText(@"unlimitedTitleKey")] ? @"-1" : title;
}

namespace {

/// Layers of views are drawn on the screen when their transaction is committed, which is at the end
/// of the event unless it is flushed. The class is looked up, because the program is not linked to
/// the framework that has it: a window has layers only where the platform has loaded that. (All
/// windows have since macOS 10.14.)
void flushLayers() {
  [NSClassFromString(@"CATransaction") performSelector:@selector(flush)];
}

}  // namespace

void showBusy(NSProgressIndicator *indicator) {
  [indicator setHidden:NO];
  [indicator startAnimation:nil];
  [indicator display];
  [[indicator window] flushWindow];
  flushLayers();
}

void setSpokenName(NSView *view, NSString *key) {
  NSString *const name = localizedText(key);
  NSString *const attribute = NSAccessibilityDescriptionAttribute;
  [view accessibilitySetOverrideValue:name forAttribute:attribute];
  if ([view isKindOfClass:[NSControl class]]) {
    [[static_cast<NSControl *>(view) cell] accessibilitySetOverrideValue:name
                                                            forAttribute:attribute];
  }
}

void discardPendingInput() {
  const NSUInteger input = NSKeyDownMask | NSKeyUpMask | NSLeftMouseDownMask | NSLeftMouseUpMask |
                           NSRightMouseDownMask | NSRightMouseUpMask;
  NSEvent *forgotten = nil;
  do {
    // One by one, because an empty queue is filled from what the window server still holds. In a
    // mode in which nothing else happens.
    forgotten = [NSApp nextEventMatchingMask:input
                                   untilDate:[NSDate distantPast]
                                      inMode:NSEventTrackingRunLoopMode
                                     dequeue:YES];
  } while (forgotten != nil);
}
