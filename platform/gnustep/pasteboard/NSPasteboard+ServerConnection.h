#import <AppKit/AppKit.h>

/// The connection with the pasteboard's server. The server lives at least as long as this program,
/// whoever started it: what was copied outlives the other programs that look at the clipboard.
/// Starting it does not run the run loop's default mode, in which anything may be served.
@interface NSPasteboard (ServerConnection)

/// Connects to the server, and starts it first where none runs, unless that has been done. Waits a
/// few seconds at most. Whether there is a connection now. Main thread.
+ (BOOL)connectToServer;

/// Whether there is a connection. A server that hangs keeps it, one that has ended does not.
+ (BOOL)isConnectedToServer;

@end
