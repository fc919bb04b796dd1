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

/// A button that is pressed by a key is highlighted for a moment before its action. The platform
/// runs the default mode meanwhile, in which a request may close the window, and the action is then
/// sent to a deallocated controller. Here nothing runs.
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
