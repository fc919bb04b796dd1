#import "platform/gnustep/windows/BackgroundApplication.h"

/// With menus in windows, which is how the platform is told to show none on the screen, it quits an
/// application with its last window unless the delegate objects. On the Mac an application goes on
/// unless its delegate wants to quit.
@implementation BackgroundApplication (LastWindow)

- (void)_lastWindowClosed {
  id delegate = [self delegate];
  const SEL question = @selector(applicationShouldTerminateAfterLastWindowClosed:);
  if (![delegate respondsToSelector:question]) return;
  if ([delegate applicationShouldTerminateAfterLastWindowClosed:self]) [self terminate:self];
}

@end
