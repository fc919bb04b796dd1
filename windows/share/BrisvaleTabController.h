#import "windows/TabWindowController.h"

@class InviteTabController;
@class PermissionTabController;

/// The window in which a folder is shared with colleagues.
///
/// Made by openWindow (TabWindowController.h), whose caller then sets the folder of both tab
/// controllers. Nobody owns it: when its window closes it releases itself. Main thread only.
@interface BrisvaleTabController : TabWindowController {
 @private
  NSTabView *shareFolderTab;
  PermissionTabController *givePermissionTab;
  InviteTabController *sendInviteTab;
  std::int64_t defaultTab;
  NSString *filePath;
}

/// The first tab lists the people with access, the second invites more.
@property (retain) IBOutlet NSTabView *shareFolderTab;
@property (retain) IBOutlet PermissionTabController *givePermissionTab;
@property (retain) IBOutlet InviteTabController *sendInviteTab;

/// Index of the tab that is shown when the window is loaded. One that does not exist shows the
/// first.
@property (nonatomic, assign) std::int64_t defaultTab;

/// Not read here: each tab controller has its own.
@property (copy) NSString *filePath;

/// A controller without a window yet; the first use of window loads it.
- (id)init;

@end
