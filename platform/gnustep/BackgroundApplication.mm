#import "platform/gnustep/BackgroundApplication.h"

@implementation BackgroundApplication

+ (BackgroundApplication *)sharedApplication {
  // Before the platform first uses the default. The user's own settings still win.
  [[NSUserDefaults standardUserDefaults]
      registerDefaults:[NSDictionary dictionaryWithObject:@"YES" forKey:@"GSSuppressAppIcon"]];
  return static_cast<BackgroundApplication *>([super sharedApplication]);
}

- (void)finishLaunching {
  _isLaunching = YES;
  [super finishLaunching];
  _isLaunching = NO;
}

- (void)activateIgnoringOtherApps:(BOOL)ignoringOtherApps {
  // The platform activates every application at its start, in the middle of what the user types
  // elsewhere.
  if (!_isLaunching) [super activateIgnoringOtherApps:ignoringOtherApps];
}

@end
