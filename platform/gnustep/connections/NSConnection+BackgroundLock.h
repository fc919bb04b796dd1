#import <Foundation/Foundation.h>

/// Turns of the background threads that talk to another process. Two things go wrong here where
/// threads of a process do so, and the reply that is lost by it is waited for for ever:
/// - several background threads, from three or four on, ask at the same time. So only one has the
///   turn;
/// - a thread ends, and its connection with it, while another one begins to ask. So a turn ends by
///   closing the thread's connections while the main thread stands still between two events, which
///   takes no longer than closing a file.
///
/// The application looks for these methods at run time: the Mac's connections need no turns, and
/// have neither method. Not for the main thread.
@interface NSConnection (BackgroundTurns)

/// Waits for the turn and answers YES when the thread has it. NO when the thread that has it has
/// been asking for so many seconds since this one began to wait: whoever it asks hangs. Threads
/// that have their turns in between, and one that only waits for the main thread to end its turn,
/// do not count.
+ (BOOL)beginTurnOfThreadWithin:(NSTimeInterval)seconds;

/// Ends the turn that the thread has. What the other process sent must have been read. Returns when
/// the main thread has run its default mode.
+ (void)endTurnOfThread;

@end
