#import <AppKit/AppKit.h>

@interface NSWindow (Closing)

/// Whether the window has been closed and not been shown again since; YES already in
/// NSWindowWillCloseNotification. Main thread only.
- (BOOL)hasBeenClosed;

@end
