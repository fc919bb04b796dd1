#import "windows/TabWindowController.h"

#import "app/ContextMenuAppAppDelegate.h"
#import "text/LocalizedText.h"
#import "windows/ViewConnections.h"

namespace {

NSString *const kWindowIsToOpen = @"newInstanceofWindowOpened";

}  // namespace

void closeOpenWindows() {
  [[NSNotificationCenter defaultCenter] postNotificationName:kWindowIsToOpen object:nil];
}

NSWindow *loadedWindow(NSWindowController *controller) {
  NSWindow *const window = [controller window];
  if (window == nil) [controller release];
  return window;
}

void closeWhenAnotherOpens(NSWindowController *controller) {
  [[NSNotificationCenter defaultCenter] addObserver:controller
                                           selector:@selector(closeActiveWindow:)
                                               name:kWindowIsToOpen
                                             object:nil];
}

NSInteger tabToShow(NSTabView *tabs, std::int64_t wanted) {
  return wanted >= 0 && wanted < [tabs numberOfTabViewItems] ? static_cast<NSInteger>(wanted) : 0;
}

void prepareWindow(NSWindowController *controller, NSTabView *tabs, std::int64_t defaultTab) {
  NSWindow *const window = [controller window];
  localizeWindow(window);
  if ([tabs numberOfTabViewItems] > 0) {
    [tabs selectTabViewItemAtIndex:tabToShow(tabs, defaultTab)];
    // The one from the interface file may be on the tab that is not shown.
    NSView *const first = [[tabs selectedTabViewItem] initialFirstResponder];
    if (first != nil) [window setInitialFirstResponder:first];
  }
  // Where the user looks, and not further down with each opening.
  [controller setShouldCascadeWindows:NO];
  [window center];
  [window setDelegate:static_cast<id<NSWindowDelegate>>(controller)];
}

void windowIsClosing(NSWindowController *controller) {
  NSLog(@"window closed");
  ContextMenuAppAppDelegate *const delegate =
      static_cast<ContextMenuAppAppDelegate *>([NSApp delegate]);
  [delegate setContextMenuFlag:YES];
  [delegate hideMe];
  // The window outlives its controller by some steps of its closing.
  NSWindow *const window = [controller window];
  [[window retain] autorelease];
  [window setDelegate:nil];
  disconnectViews(window);
}
