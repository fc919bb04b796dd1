#import <AppKit/AppKit.h>

#include <cstdint>

/// What the controllers of both windows have in common. A controller is made by openWindow and has
/// no owner: when its window closes it stops observing and releases itself. Main thread.
@interface TabWindowController : NSWindowController <NSWindowDelegate>

/// Registers for "newInstanceofWindowOpened". The window is loaded by the first use of window.
- (id)initWithWindowNibName:(NSString *)name;

/// Sets defaultTab. Without effect once the window has been loaded.
- (void)selectTabAtPosition:(std::int64_t)position;

/// Closes the window, and with it the controller.
- (void)close;

/// Another window of the application is about to open: closes this one.
- (void)closeActiveWindow:(NSNotification *)notification;

@end

/// What each of the two has of its own, as a property or a method.
@interface TabWindowController (Tabs)

/// Index of the tab that is shown when the window is loaded. One that does not exist shows the
/// first.
- (std::int64_t)defaultTab;
- (void)setDefaultTab:(std::int64_t)position;

- (NSTabView *)tabView;

/// Disconnects the tabs' controllers from the window (see TabController.h), which is closing.
- (void)disconnectTabs;

@end

/// Closes all open windows of the application, as every opener and every action that needs no
/// window does first: posts "newInstanceofWindowOpened".
void closeOpenWindows();

/// The index of the tab to show: `wanted` when there is such a tab, otherwise the first.
NSInteger tabToShow(NSTabView *tabs, std::int64_t wanted);

/// How a window is opened.
struct WindowOpening {
  /// Index of the tab to show.
  std::int64_t tab = 0;
  /// The window's title; nil keeps that of the interface file.
  NSString *title = nil;
  /// Whether the window and the application come in front of all others: for the plug-in, whose
  /// application is in front until then. Not for the context menu, which is the application's own.
  bool isInFrontOfAllApplications = false;
};

/// Opens the window of a new controller of this class, a subclass of TabWindowController, and
/// clears the context-menu flag. Returns the controller, which lives until its window closes; nil
/// when the window could not be loaded.
TabWindowController *openTabWindow(Class controllerClass, const WindowOpening &opening);

/// The same, typed.
template <class Controller>
Controller *openWindow(const WindowOpening &opening) {
  return static_cast<Controller *>(openTabWindow([Controller class], opening));
}
