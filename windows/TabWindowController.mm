#import "windows/TabWindowController.h"

#import "text/LocalizedText.h"
#import "windows/ApplicationState.h"

namespace {

NSString *const kWindowIsToOpen = @"newInstanceofWindowOpened";

/// Whether it is one of the application, created by the interface file or its owner. Where views
/// are connected with each other, as a scroller is with its scroll view, the platform needs it.
bool isController(id object) {
  if ([object isKindOfClass:[TabWindowController class]]) return true;
  return object != nil && ![object isKindOfClass:[NSResponder class]] &&
         ![object isKindOfClass:[NSCell class]];
}

void disconnectView(NSView *view) {
  if ([view isKindOfClass:[NSControl class]]) {
    NSControl *const control = static_cast<NSControl *>(view);
    if (isController([control target])) [control setTarget:nil];
  }
  // Text fields, text views, tab views and collection views each declare their own.
  if ([view respondsToSelector:@selector(setDelegate:)]) {
    NSTextView *const delegating = static_cast<NSTextView *>(view);
    if (isController([delegating delegate])) [delegating setDelegate:nil];
  }
}

void disconnectTree(NSView *view) {
  if (view == nil) return;
  disconnectView(view);
  if ([view isKindOfClass:[NSTabView class]]) {
    for (NSTabViewItem *item in [static_cast<NSTabView *>(view) tabViewItems]) {
      disconnectTree([item view]);
    }
    return;  // the shown tab's view is one of its subviews
  }
  if ([view isKindOfClass:[NSCollectionView class]]) {
    disconnectTree([[static_cast<NSCollectionView *>(view) itemPrototype] view]);
  }
  for (NSView *subview in [view subviews]) disconnectTree(subview);
}

/// Takes the controllers away from all views of a window, those of tabs that are not shown and
/// of the prototype of rows as well: no view has one as its target or its delegate any more. Views
/// do not retain their targets and delegates, and a closed window may outlive its controllers until
/// the pass of the run loop in which it was closed has ended.
void disconnectViews(NSWindow *window) {
  disconnectTree([window contentView]);
}

/// Lets Tab begin at the first control of this tab where no control has the keyboard, and not at
/// one that is not shown.
void beginAtTab(NSTabViewItem *tab, NSWindow *window) {
  if ([tab initialFirstResponder] != nil) {
    [window setInitialFirstResponder:[tab initialFirstResponder]];
  }
}

}  // namespace

void closeOpenWindows() {
  [[NSNotificationCenter defaultCenter] postNotificationName:kWindowIsToOpen object:nil];
}

NSInteger tabToShow(NSTabView *tabs, std::int64_t wanted) {
  return wanted >= 0 && wanted < [tabs numberOfTabViewItems] ? static_cast<NSInteger>(wanted) : 0;
}

TabWindowController *openTabWindow(Class controllerClass, const WindowOpening &opening) {
  const bool isInFront = opening.isInFrontOfAllApplications;
  id<ApplicationState> const state = applicationState();
  if (!isInFront) [state setContextMenuFlag:NO];
  TabWindowController *const controller = [[controllerClass alloc] init];
  [controller selectTabAtPosition:opening.tab];
  NSWindow *const window = [controller window];
  if (window == nil) {
    // Without a window there is no closing at which the controller would release itself.
    [controller release];
    if (!isInFront) [state setContextMenuFlag:YES];
    return nil;
  }
  // The closing of the window before, for one, has hidden the application, and the windows of a
  // hidden application are not seen. Not left to the activation, which the system may refuse.
  [NSApp unhideWithoutActivation];
  if (isInFront) {
    [window orderFrontRegardless];
  } else {
    [controller showWindow:state];
  }
  // NOLINTNEXTLINE(clang-analyzer-optin.osx.cocoa.*): an item's name, the same in every language
  if (opening.title != nil) [window setTitle:opening.title];
  if (isInFront) {
    [NSApp activateIgnoringOtherApps:YES];
    [window makeKeyWindow];
    [state setContextMenuFlag:NO];
  }
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): released when its window closes
  return controller;
}

@implementation TabWindowController

- (id)initWithWindowNibName:(NSString *)name {
  if ((self = [super initWithWindowNibName:name])) {
    // Every opener posts this before it makes its own controller, which is therefore not closed.
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(closeActiveWindow:)
                                                 name:kWindowIsToOpen
                                               object:nil];
  }
  return self;
}

- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [super dealloc];
}

- (void)selectTabAtPosition:(std::int64_t)position {
  [self setDefaultTab:position];
}

- (void)awakeFromNib {
  NSWindow *const window = [self window];
  NSTabView *const tabs = [self tabView];
  localizeWindow(window);
  if ([tabs numberOfTabViewItems] > 0) {
    [tabs selectTabViewItemAtIndex:tabToShow(tabs, [self defaultTab])];
    // The one from the interface file may be on the tab that is not shown.
    beginAtTab([tabs selectedTabViewItem], window);
  }
  // In the middle of the screen, and not further down with each opening.
  [self setShouldCascadeWindows:NO];
  [window center];
  [window setDelegate:self];
}

- (void)close {
  [[self window] close];
}

- (void)closeActiveWindow:(NSNotification *)notification {
  (void)notification;
  [self close];
}

#pragma mark - NSTabViewDelegate

- (void)tabView:(NSTabView *)tabs didSelectTabViewItem:(NSTabViewItem *)tab {
  NSWindow *const window = [tabs window];
  beginAtTab(tab, window);
  // A list takes no keys itself, but its rows do, which are made when they are first shown.
  if ([window firstResponder] == window) {
    [window selectKeyViewFollowingView:[tab initialFirstResponder]];
  }
}

#pragma mark - NSWindowDelegate

- (void)windowWillClose:(NSNotification *)notification {
  (void)notification;
  NSLog(@"window closed");
  id<ApplicationState> const state = applicationState();
  [state setContextMenuFlag:YES];
  [state hideMe];
  // The platform still uses the window while it closes.
  NSWindow *const window = [self window];
  [[window retain] autorelease];
  [window setDelegate:nil];
  disconnectViews(window);
  // The timer of a success sheet, for one, retains its tab controller longer.
  [self disconnectTabs];
  // Somebody may hold the controller a little longer: since macOS 10.11 the notification centre
  // does while it posts. It must close no other window then.
  [[NSNotificationCenter defaultCenter] removeObserver:self name:kWindowIsToOpen object:nil];
  // The reference of openTabWindow. Nobody else owns the controller, so it ends with its window.
  [self release];
}

@end
