#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

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

namespace {

constinit platform::ReplacedMethod<void(NSTimer *)> platformBlink;

}  // namespace

@implementation NSTextView (CaretTimer)

+ (void)load {
  platformBlink.install(self, @selector(_blink:), @selector(blinkWhileThereIsACaret:));
}

- (void)blinkWhileThereIsACaret:(NSTimer *)timer {
  const BOOL hasCaret = [self shouldDrawInsertionPoint] && [[self window] isVisible];
  // A last time for a caret that is still to be seen.
  if (hasCaret || _drawInsertionPointNow) platformBlink(self, _cmd, timer);
  // May be the end of the view, which the timer has kept.
  if (!hasCaret) [self _stopInsertionTimer];
}

@end
