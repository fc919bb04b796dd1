#import "platform/gnustep/windows/BackgroundApplication.h"

/// With menus in windows, the setting by which none is shown on the screen, the platform terminates
/// an application with its last window unless the delegate says no. On the Mac the delegate has to
/// say yes.
@implementation BackgroundApplication (LastWindow)

- (void)_lastWindowClosed {
  id delegate = [self delegate];
  const SEL question = @selector(applicationShouldTerminateAfterLastWindowClosed:);
  if (![delegate respondsToSelector:question]) return;
  if ([delegate applicationShouldTerminateAfterLastWindowClosed:self]) [self terminate:self];
}

@end
