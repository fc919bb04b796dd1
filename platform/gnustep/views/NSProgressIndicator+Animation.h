#import <AppKit/AppKit.h>

/// Main thread only.
@interface NSProgressIndicator (Animation)

/// Whether its animation was started and has not been stopped.
- (BOOL)isRunning;

@end
