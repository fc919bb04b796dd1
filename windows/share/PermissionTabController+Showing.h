#import "windows/share/PermissionTabController.h"

/// What is visible in the tab: the list with its title, or a line of text instead of it, and
/// whether the tab is busy. Main thread only; nothing happens once the window has been closed.
@interface PermissionTabController (Showing)

/// The tab is busy fetching the list. Drawn at once, because a load on the main thread blocks it.
/// The line of text is set but not shown, so that a list which is loaded again stays visible.
- (void)showFetching;

/// The tab is busy with a change or a removal.
- (void)showAtWork;

/// Shows the list unless it is empty; sets the line of text otherwise.
- (void)showListOrNobody;

/// Shows the line of text instead of the list.
- (void)showInsteadOfList:(NSString *)text;

/// The tab is no longer busy.
- (void)showIdle;

@end
