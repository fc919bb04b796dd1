#import <AppKit/AppKit.h>

/// A pasteboard always answers, as on the Mac: where its server does not, with nothing (nil, NO, 0)
/// and within seconds, instead of an exception. A server that has ended is replaced; one that hangs
/// is asked again when a pasteboard is next asked for by its name, and until then the pasteboard
/// has no server. Main thread.
@interface NSPasteboard (Timeouts)

/// How many questions the server has left without an answer. For who must know whether one of
/// those that he has asked was among them.
+ (NSUInteger)timedOutRequests;

/// Whether the server has not answered the last question.
+ (BOOL)isServerUnresponsive;

/// Whether the pasteboard has a server to ask.
- (BOOL)hasServer;

/// For the general pasteboard without a server: has it emptied as the first thing that the server
/// does when it goes on. Nothing when there has been no server yet.
- (void)clearWhenServerResumes;

@end
