#import "platform/gnustep/BackgroundApplication.h"

#import "platform/gnustep/MacKeys.h"

@implementation BackgroundApplication

+ (BackgroundApplication *)sharedApplication {
  // Before the platform first uses the default. The user's own settings still win.
  [[NSUserDefaults standardUserDefaults]
      registerDefaults:[NSDictionary dictionaryWithObject:@"YES" forKey:@"GSSuppressAppIcon"]];
  installMacKeys();
  return static_cast<BackgroundApplication *>([super sharedApplication]);
}

- (void)finishLaunching {
  _isLaunching = YES;
  [super finishLaunching];
  _isLaunching = NO;
  [self performSelector:@selector(startPasteboardServer) withObject:nil afterDelay:0];
}

/// On the Mac the pasteboard server always runs. Here the first use starts it, and whoever uses the
/// pasteboard first waits for that: better nobody than the user.
- (void)startPasteboardServer {
  [NSPasteboard generalPasteboard];
}

- (void)activateIgnoringOtherApps:(BOOL)ignoringOtherApps {
  // The platform activates every application at its start, in the middle of what the user types
  // elsewhere.
  if (!_isLaunching) [super activateIgnoringOtherApps:ignoringOtherApps];
}

- (void)hide:(id)sender {
  (void)sender;
  if (_app_is_hidden) return;
  NSNotificationCenter *const center = [NSNotificationCenter defaultCenter];
  [center postNotificationName:NSApplicationWillHideNotification object:self];
  // First, because it notes which window has the keyboard.
  [self deactivate];
  for (NSWindow *window in [self windows]) {
    if (![window isVisible] || ![window canHide]) continue;
    [_hidden addObject:window];
    [window orderOut:self];
  }
  _app_is_hidden = YES;
  _unhide_on_activation = YES;
  [center postNotificationName:NSApplicationDidHideNotification object:self];
}

@end
