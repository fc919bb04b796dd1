#import <Foundation/Foundation.h>

#include <cstdint>

@class PermissionTabController;

/// One load of a folder's access list: the request and its result. The permissions tab creates and
/// shows it on the main thread; in between only the thread of the load uses it.
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

/// The folder, as the agent expects it.
@property (nonatomic, copy) NSString *pathOrId;
@property (nonatomic, assign) BOOL isFileId;

/// The rows (SharedWith) of the listed people in the agent's order; empty until askAgent.
@property (nonatomic, readonly) NSMutableArray *people;

/// Whether the whole list was received: NO when the agent or the service could not be reached, when
/// the connection broke before the last entry, or when another background thread held the lock all
/// the time (BackgroundRequestLock.h).
@property (nonatomic, readonly) BOOL isAnswered;

/// Asks the agent and reads its reply. Blocks the calling thread.
- (void)askAgent;

@end

/// Loads the access list of a permissions tab on a thread of its own.
///
/// Retains the tab until the load has ended and releases it on the main thread. On the thread of
/// the load the tab could be deallocated while the main thread is notifying it of an invitation.
@interface BackgroundLoad : NSObject {
 @private
  PermissionTabController *_tab;
}

/// Starts refershManagePermissionsView of the tab on a new thread and returns at once. Main thread.
+ (void)startForTab:(PermissionTabController *)tab;

@end
