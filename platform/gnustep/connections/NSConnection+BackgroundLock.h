#import <Foundation/Foundation.h>

/// A lock for background threads that use connections. GNUstep drops replies, and the caller blocks
/// for ever, when
/// - three or more background threads wait for replies at the same time. So only one thread holds
///   the lock;
/// - a thread exits, and its connection with it, while another one begins a request. So unlocking
///   closes the thread's connections while the main thread is blocked between two events, which
///   takes no longer than closing a file.
///
/// The application looks for these methods at run time: connections on the Mac need no lock and
/// have neither method. Not for the main thread.
@interface NSConnection (BackgroundLock)

/// Waits for the lock and answers YES when the thread holds it. NO when another thread has held it
/// for the time-out, in seconds, since this one began to wait: whatever that thread talks to does
/// not reply. The time starts again when the lock changes hands, and stops while its holder only
/// waits for the main thread in order to unlock. So this takes no date.
+ (BOOL)lockForBackgroundThreadWithTimeout:(NSTimeInterval)seconds;

/// Gives the lock back. What the other process sent must have been read. Returns when the main
/// thread has run its default mode.
+ (void)unlockForBackgroundThread;

@end
