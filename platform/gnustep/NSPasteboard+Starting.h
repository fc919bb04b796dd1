#import <AppKit/AppKit.h>

@interface NSPasteboard (Starting)

/// Whether somebody further up the stack is connecting to the pasteboard's server. That may start
/// the server and run the run loop until it is there; a second beginning inside would start another
/// one and wait 5 seconds for it, in vain. Main thread.
+ (BOOL)isConnectingToServer;

@end
