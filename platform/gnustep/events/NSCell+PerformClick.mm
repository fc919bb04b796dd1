#import <AppKit/AppKit.h>

@interface NSCell (PlatformPrivate)
- (void)_sendActionFrom:(NSView *)controlView;
@end

namespace {

constexpr NSTimeInterval kHighlightedSeconds = 0.1;

void show(NSCell *cell, BOOL highlighted, NSRect frame, NSView *view) {
  [cell highlight:highlighted withFrame:frame inView:view];
  [[view window] flushWindow];
}

}  // namespace

/// A key that stands for a button shows it pressed for a moment first. The platform runs the run
/// loop's default mode meanwhile: what it serves there may close the button's window, and the
/// action then goes to a controller that is gone.
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSCell (PerformClick)

- (void)performClickWithFrame:(NSRect)cellFrame inView:(NSView *)controlView {
  if (![self isEnabled]) return;
  [self setNextState];
  if ([controlView canDraw]) {
    [controlView lockFocus];
    show(self, YES, cellFrame, controlView);
    [NSThread sleepForTimeInterval:kHighlightedSeconds];
    show(self, NO, cellFrame, controlView);
    [controlView unlockFocus];
  }
  [self _sendActionFrom:controlView];
}

@end
