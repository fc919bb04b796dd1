#import <AppKit/AppKit.h>

#include "platform/gnustep/runtime/OwnMethod.h"

// The platform ends the blinking of a text view's caret when the view loses the keyboard, but not
// if text is selected at that moment: the timer then goes on, and keeps the view, as long as the
// application lives. So it ends itself where there is no caret. Setting the selection and getting
// the keyboard start another one.

@interface NSTextView (PlatformCaret)
- (void)_blink:(NSTimer *)timer;
- (void)_stopInsertionTimer;
@end

@interface NSTextView (CaretTimer)
@end

// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSTextView (CaretTimer)

- (void)_blink:(NSTimer *)timer {
  static const auto own = ownMethod<void (*)(id, SEL, NSTimer *)>([NSTextView class], _cmd);
  const BOOL hasCaret = [self shouldDrawInsertionPoint] && [[self window] isVisible];
  // A last time for a caret that is still to be seen.
  if (hasCaret || _drawInsertionPointNow) own(self, _cmd, timer);
  // May be the end of the view, which the timer has kept.
  if (!hasCaret) [self _stopInsertionTimer];
}

@end
