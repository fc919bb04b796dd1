#pragma once

#import <AppKit/AppKit.h>

#include <cstdint>

/// What the two window controllers do alike. Each is created by whoever opens its window, has no
/// owner, and destroys itself when the window closes. Main thread.

/// What every opener begins with, and every action that needs no window: tells all open windows of
/// the application to close.
void closeOpenWindows();

/// The controller's window, loaded now if it has not been yet. nil when it could not be loaded: the
/// controller, of which only its window's closing would be the end, is gone then.
NSWindow *loadedWindow(NSWindowController *controller);

/// Registers a new controller for "newInstanceofWindowOpened", which every opener posts before it
/// makes its own: closeActiveWindow: then closes this one.
void closeWhenAnotherOpens(NSWindowController *controller);

/// The index of the tab to show: `wanted` when there is such a tab, otherwise the first.
NSInteger tabToShow(NSTabView *tabs, std::int64_t wanted);

/// To be called when the interface file has been loaded: puts the texts in, shows the tab, and
/// makes the controller its window's delegate.
void prepareWindow(NSWindowController *controller, NSTabView *tabs, std::int64_t defaultTab);

/// The closing of a controller's window: logs, marks the application as idle and hides it, and cuts
/// what would still reach the controller or those of the tabs. What the platform has on its stack
/// while a window closes is kept alive until it is done. The controller has its tab controllers let
/// go of the window and destroys itself next.
void windowIsClosing(NSWindowController *controller);
