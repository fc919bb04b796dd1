#import <AppKit/AppKit.h>

/// Pasteboards never raise, as on the Mac: where the server does not reply, they answer nil, NO or
/// 0 within seconds. A server that has exited is replaced; one that hangs is asked again at the
/// next look-up of a pasteboard by name, and until then the pasteboard has no server. Main thread.
@interface NSPasteboard (Timeouts)

/// How many requests the server has not replied to. Compare before and after to know whether a call
/// was among them.
+ (NSUInteger)timedOutRequests;

/// Whether the server has not replied to the last request.
+ (BOOL)isServerUnresponsive;

/// Whether the pasteboard is connected to a server.
- (BOOL)hasServer;

/// For the general pasteboard without a server: sends a request that empties it as soon as the
/// server resumes. No effect when there has been no server yet.
- (void)clearWhenServerResumes;

@end
