#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

// The platform stops the timer of the caret when a text view resigns first responder, but not if
// text is selected then: the timer keeps firing, and retains the view, until the application exits.
// So it stops itself when there is no caret. Setting the selection and becoming first responder
// start another one.

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
  // Once more for a caret that is still visible.
  if (hasCaret || _drawInsertionPointNow) platformBlink(self, _cmd, timer);
  // May deallocate the view, which the timer has retained.
  if (!hasCaret) [self _stopInsertionTimer];
}

@end
