#import <AppKit/AppKit.h>

/// The pasteboard's server lives at least as long as this program once it is connected to it,
/// whoever started it: what was copied outlives the other programs that look at the clipboard.
@interface NSPasteboard (Starting)

/// Whether somebody further up the stack is connecting to the pasteboard's server. That may start
/// the server and run the run loop until it is there; a second beginning inside would start another
/// one and wait 5 seconds for it, in vain. Main thread.
+ (BOOL)isConnectingToServer;

@end
