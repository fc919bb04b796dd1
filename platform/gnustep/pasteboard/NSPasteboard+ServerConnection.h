#import <AppKit/AppKit.h>

/// The connection to the pasteboard server. The server lives at least as long as this program,
/// whoever started it, so that the contents of the clipboard survive the exit of other programs.
/// Starting it does not run the default mode, in which requests may be served.
@interface NSPasteboard (ServerConnection)

/// Connects to the server unless connected, and starts it if none is running. Blocks for a few
/// seconds at most. Answers whether it is connected. Main thread.
+ (BOOL)connectToServer;

/// Starts the server if none is running, and does not wait for it; answers whether one is running
/// already. Main thread.
+ (BOOL)startServer;

/// Whether a server has registered its name, even if it hangs. Does not ask it. Main thread.
+ (BOOL)isServerRunning;

/// Whether the connection is valid. It is while the server hangs, but not when it has exited.
+ (BOOL)isConnectedToServer;

@end
