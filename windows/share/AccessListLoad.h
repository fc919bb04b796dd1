#import <Foundation/Foundation.h>

#include <cstdint>

@class PermissionTabController;

/// One load of a folder's access list: what it asks for and what came of it. Made and shown by the
/// permissions tab on the main thread; asked on the thread of the load, which is the only one to
/// touch it meanwhile.
@interface AccessListLoad : NSObject {
 @private
  std::uint64_t number;
  NSString *pathOrId;
  BOOL isFileId;
  NSMutableArray *people;
  BOOL isAnswered;
}

/// Which load of its tab this is, counted from 1.
@property (nonatomic, assign) std::uint64_t number;

/// The folder, as the agent takes it.
@property (nonatomic, copy) NSString *pathOrId;
@property (nonatomic, assign) BOOL isFileId;

/// The rows (SharedWith) of the listed people in the agent's order; empty until the agent is asked.
@property (nonatomic, readonly) NSMutableArray *people;

/// Whether the whole list came: NO when the agent or the service could not be reached, when the
/// connection broke before the last entry, or when another background thread was waiting for the
/// agent all the time (BackgroundTurn.h).
@property (nonatomic, readonly) BOOL isAnswered;

/// Asks the agent and reads the answer. Blocks the calling thread until both are done.
- (void)askAgent;

@end

/// A load of a permissions tab on a thread of its own.
///
/// It, and not its thread, holds the tab, and lets it go on the main thread: a tab that ended on
/// the thread of its load could end while the main thread is telling it of an invitation.
@interface BackgroundLoad : NSObject {
 @private
  PermissionTabController *_tab;
}

/// Starts refershManagePermissionsView of the tab on a new thread and returns at once. Main thread.
+ (void)startForTab:(PermissionTabController *)tab;

@end
