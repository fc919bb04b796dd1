#import <Foundation/Foundation.h>

@class PermissionTabController;

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
