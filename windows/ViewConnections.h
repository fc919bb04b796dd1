#pragma once

#import <AppKit/AppKit.h>

/// Takes the tab controllers away from all views of a window, those of tabs that are not shown and
/// of the prototype of rows as well: no view has one as its target or its delegate any more.
///
/// For a window that is closing. Views do not keep their targets and delegates, and a closed window
/// may be there longer than its controllers: until whoever closed it is done, and the run loop's
/// pass with it. Nothing for nil. Main thread.
void disconnectViews(NSWindow *window);
