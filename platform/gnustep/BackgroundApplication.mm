#import "platform/gnustep/BackgroundApplication.h"

@implementation BackgroundApplication

+ (BackgroundApplication *)sharedApplication {
  // Before the first use of a default by the platform. The user's own settings still win.
  [[NSUserDefaults standardUserDefaults]
      registerDefaults:[NSDictionary dictionaryWithObject:@"YES" forKey:@"GSSuppressAppIcon"]];
  return static_cast<BackgroundApplication *>([super sharedApplication]);
}

@end
