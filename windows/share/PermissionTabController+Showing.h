#import "windows/share/PermissionTabController.h"

/// What is visible in the tab: the list with its title, or a line of text instead of it, and
/// whether the tab is busy. Main thread only; nothing happens once the window has been closed.
@interface PermissionTabController (Showing)

/// The tab is busy fetching the list. Drawn at once: on the main thread nothing else is until the
/// agent has answered. The line of text is only put in place, so that a list which is loaded anew
/// stays in sight.
- (void)showFetching;

/// The tab is busy with something that the user did.
- (void)showAtWork;

/// The list when there is somebody in it; otherwise the line of text says so where it is visible.
- (void)showListOrNobody;

/// The line of text instead of the list.
- (void)showInsteadOfList:(NSString *)text;

/// The tab is busy no more.
- (void)showIdle;

@end
