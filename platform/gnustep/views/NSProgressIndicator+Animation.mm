#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

// An indicator that is animated has a timer only while it can be seen, as on the Mac. The
// platform's has one, or a thread, from startAnimation: to stopAnimation:, and the timer keeps it:
// one that was hidden or whose window was closed went on waking the processor twelve times a second
// as long as the application lived.
//
// Whatever puts an indicator on the screen again (its window, its tab, setHidden:) draws it, and
// drawing resumes the animation. The timer itself looks whether it is still needed.

@interface NSProgressIndicator (Animation)
- (void)resumeAnimation;
- (void)suspendAnimation;
@end

namespace {

constinit platform::ReplacedMethod<void(NSRect)> platformDrawRect;

}  // namespace

// Replacing the platform's own methods is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSProgressIndicator (Animation)

+ (void)load {
  platformDrawRect.install(self, @selector(drawRect:), @selector(drawRectAndResumeAnimation:));
}

/// A bar with a value has none.
- (BOOL)hasAnimation {
  return _isIndeterminate || _style == NSProgressIndicatorSpinningStyle;
}

- (BOOL)canBeSeen {
  return [[self window] isVisible] && ![self isHiddenOrHasHiddenAncestor];
}

- (void)startAnimation:(id)sender {
  (void)sender;
  if (_isRunning || ![self hasAnimation]) return;
  _isRunning = YES;
  // One that is not displayed when stopped appears.
  [self setNeedsDisplay:YES];
  if ([self canBeSeen]) [self resumeAnimation];
}

- (void)stopAnimation:(id)sender {
  (void)sender;
  if (!_isRunning) return;
  _isRunning = NO;
  _count = 0;
  [self setNeedsDisplay:YES];
  [self suspendAnimation];
}

/// Also for a threaded animation: the platform's thread does no more than ask the main thread to
/// draw, and could not be told to pause.
- (void)resumeAnimation {
  if (_timer != nil) return;
  _timer = [[NSTimer scheduledTimerWithTimeInterval:_animationDelay
                                             target:self
                                           selector:@selector(animationTimerFired:)
                                           userInfo:nil
                                            repeats:YES] retain];  // until suspendAnimation
  [[NSRunLoop currentRunLoop] addTimer:_timer forMode:NSModalPanelRunLoopMode];
}

/// May be the end of the indicator, which the timer has kept.
- (void)suspendAnimation {
  NSTimer *const timer = _timer;
  _timer = nil;
  [timer invalidate];
  [timer release];
}

- (void)animationTimerFired:(NSTimer *)timer {
  (void)timer;
  if ([self hasAnimation] && [self canBeSeen]) {
    [self animate:nil];
    return;
  }
  // To be drawn, and so to go on, when its window comes back.
  [self setNeedsDisplay:YES];
  [self suspendAnimation];
}

- (void)drawRectAndResumeAnimation:(NSRect)rect {
  platformDrawRect(self, _cmd, rect);
  // Whether it can be seen is up to the timer: a window that is being ordered in is drawn before it
  // counts as visible.
  if (_isRunning && [self hasAnimation]) [self resumeAnimation];
}

/// At once: nothing but its timer may be left to keep it.
- (void)viewWillMoveToWindow:(NSWindow *)window {
  [super viewWillMoveToWindow:window];
  if (window == nil) [self suspendAnimation];
}

@end
