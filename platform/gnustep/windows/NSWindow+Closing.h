#import <AppKit/AppKit.h>

@interface NSWindow (Closing)

/// Whether the window has been closed and not been shown again since; already while it tells that
/// it will close. Main thread only.
- (BOOL)hasBeenClosed;

@end
