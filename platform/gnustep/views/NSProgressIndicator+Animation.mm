#import "platform/gnustep/views/NSProgressIndicator+Animation.h"

#include "platform/gnustep/desktop/DesktopLook.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

// Where the user wants no animations, none has a timer: the theme draws a running indicator so that
// it says without moving that something runs.
//
// An animated indicator has a timer only while it is visible, as on the Mac. The platform's has
// one, or a thread, from startAnimation: to stopAnimation:, and the timer retains it: an indicator
// that is hidden or whose window is closed would wake the processor twelve times a second until the
// application exits.
//
// Whatever makes an indicator visible again (its window, its tab, setHidden:) draws it, and drawing
// resumes the animation. The timer stops itself when it is not needed.

@interface NSProgressIndicator (AnimationTimer)
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

- (BOOL)isRunning {
  return _isRunning;
}

/// A determinate bar has none.
- (BOOL)hasAnimation {
  return _isIndeterminate || _style == NSProgressIndicatorSpinningStyle;
}

- (BOOL)moves {
  return platform::currentLook().isAnimated && [self hasAnimation];
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
  if ([self moves] && [self canBeSeen]) [self resumeAnimation];
}

- (void)stopAnimation:(id)sender {
  (void)sender;
  if (!_isRunning) return;
  _isRunning = NO;
  _count = 0;
  [self setNeedsDisplay:YES];
  [self suspendAnimation];
}

/// Also for a threaded animation: the platform's thread only makes the main thread draw, and cannot
/// be paused.
- (void)resumeAnimation {
  if (_timer != nil) return;
  _timer = [[NSTimer scheduledTimerWithTimeInterval:_animationDelay
                                             target:self
                                           selector:@selector(animationTimerFired:)
                                           userInfo:nil
                                            repeats:YES] retain];  // until suspendAnimation
  [[NSRunLoop currentRunLoop] addTimer:_timer forMode:NSModalPanelRunLoopMode];
}

/// May deallocate the indicator, which the timer has retained.
- (void)suspendAnimation {
  NSTimer *const timer = _timer;
  _timer = nil;
  [timer invalidate];
  [timer release];
}

- (void)animationTimerFired:(NSTimer *)timer {
  (void)timer;
  if ([self moves] && [self canBeSeen]) {
    [self animate:nil];
    return;
  }
  // So that it is drawn, and resumes, when its window is visible again.
  [self setNeedsDisplay:YES];
  [self suspendAnimation];
}

- (void)drawRectAndResumeAnimation:(NSRect)rect {
  platformDrawRect(self, _cmd, rect);
  // Not if it is visible: a window that is being ordered in is drawn before it counts as visible.
  // The timer checks it.
  if (_isRunning && [self moves]) [self resumeAnimation];
}

/// At once, because the timer may be the last to retain it.
- (void)viewWillMoveToWindow:(NSWindow *)window {
  [super viewWillMoveToWindow:window];
  if (window == nil) [self suspendAnimation];
}

@end
