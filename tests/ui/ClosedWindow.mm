#include <set>

#include "tests/support/DueTimers.h"
#import "tests/ui/PermissionsTab.h"
#import "tests/ui/WindowFixtures.h"

namespace {

/// A window that still exists after its closing by a timer or another source of the run loop, so
/// that later sources in the same pass meet the window without its controllers.
struct ClosedWindow : Windows {
  ClosedWindow() {
    [delegate setAddressBookForShare:[NSMutableArray arrayWithArray:@[ @"Anna<anna@x.org>" ]]];
    agent.answer(@"getAccess::", success(people(3)));
    for (Class cls : tabControllers()) countEndsOf(cls);
  }

  ~ClosedWindow() override { [delegate setAddressBookForShare:nil]; }

  /// Whether the permissions tab that closedShare has opened has been deallocated.
  std::function<bool()> permissionsTabHasEnded;

  static std::vector<Class> tabControllers() {
    return {[SendFileController class],
            [CopyLinkController class],
            [InviteTabController class],
            [PermissionTabController class]};
  }

  /// Does it to the window, and to what it shows, in an event of its own; then closes the window.
  /// The window, without its controllers.
  template <class Step>
  NSWindow *closed(NSWindowController *controller, Step step) {
    NSWindow *const window = [[[controller window] retain] autorelease];
    @autoreleasepool {
      step(window);
      closeWindows();
    }
    return window;
  }

  NSWindow *closedSend(int tab) {
    NSWindow *window = nil;
    @autoreleasepool {
      window = [closed(openSend(tab), [](NSWindow *) {}) retain];
    }
    return [window autorelease];
  }

  /// With three rows.
  NSWindow *closedShare(int tab) {
    NSWindow *window = nil;
    @autoreleasepool {
      BrisvaleTabController *const controller = openShare(tab);
      permissionsTabHasEnded = endOf([controller givePermissionTab]);
      window = [closed(controller, [](NSWindow *shown) {
        EXPECT_TRUE(handleEventsUntil([&] { return rowsIn(shown) == 3; }));
      }) retain];
    }
    return [window autorelease];
  }

  static NSUInteger rowsIn(NSWindow *window) {
    NSUInteger rows = 0;
    for (NSView *view : viewsIn(window)) {
      if ([view isKindOfClass:[NSCollectionView class]]) {
        rows = [[static_cast<NSCollectionView *>(view) content] count];
      }
    }
    return rows;
  }

  /// Those of tabs that are not shown and of the prototype of rows as well.
  static std::set<NSView *> viewsIn(NSWindow *window) {
    std::set<NSView *> views;
    addViews([window contentView], views);
    return views;
  }

  static void addViews(NSView *view, std::set<NSView *> &views) {
    if (view == nil || !views.insert(view).second) return;
    for (NSView *subview in [view subviews]) addViews(subview, views);
    if ([view isKindOfClass:[NSTabView class]]) {
      for (NSTabViewItem *item in [static_cast<NSTabView *>(view) tabViewItems]) {
        addViews([item view], views);
      }
    }
    if ([view isKindOfClass:[NSCollectionView class]]) {
      addViews([[static_cast<NSCollectionView *>(view) itemPrototype] view], views);
    }
  }

  /// How many of the window's views have one of the tab controllers as their target or delegate.
  static int viewsThatReachControllers(NSWindow *window) {
    int count = 0;
    for (NSView *view : viewsIn(window)) {
      if ([view respondsToSelector:@selector(target)]) count += isController([(id)view target]);
      if ([view respondsToSelector:@selector(delegate)]) count += isController([(id)view delegate]);
    }
    return count;
  }

  static bool isController(id object) {
    for (Class cls : tabControllers()) {
      if ([object isKindOfClass:cls]) return true;
    }
    return [object isKindOfClass:[TabWindowController class]];
  }

  static NSTokenField *recipientsIn(NSWindow *window) {
    for (NSView *view : viewsIn(window)) {
      if ([view isKindOfClass:[NSTokenField class]]) return static_cast<NSTokenField *>(view);
    }
    return nil;
  }

  static NSPopUpButton *popUpIn(NSWindow *window) {
    for (NSView *view : viewsIn(window)) {
      if ([view isKindOfClass:[NSPopUpButton class]] && [view window] == window) {
        return static_cast<NSPopUpButton *>(view);
      }
    }
    return nil;
  }

  /// Closes the controller's window while its indicators turn; returns whether they no longer turn
  /// in another window, where they are visible.
  bool stopsIndicators(NSWindowController *controller) {
    std::vector<NSProgressIndicator *> indicators;
    closed(controller, [&](NSWindow *window) {
      for (NSView *view : viewsIn(window)) {
        if (![view isKindOfClass:[NSProgressIndicator class]]) continue;
        indicators.push_back([static_cast<NSProgressIndicator *>(view) retain]);
        [indicators.back() setHidden:NO];
        [indicators.back() startAnimation:nil];
      }
    });
    EXPECT_EQ(indicators.size(), 2u);
    NSWindow *const other = [[[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 600, 400)
                                                         styleMask:NSTitledWindowMask
                                                           backing:NSBackingStoreBuffered
                                                             defer:YES] autorelease];
    [other setReleasedWhenClosed:NO];
    for (NSProgressIndicator *indicator : indicators) {
      [[other contentView] addSubview:indicator];
      [indicator release];
    }
    [other orderFrontRegardless];
    const bool stopped = handleEventsUntil([] { return nothingIsDueSoon(); });
    for (NSProgressIndicator *indicator : indicators) [indicator stopAnimation:nil];
    [other close];
    return stopped;
  }

  /// Types into the recipients field: what completions there are is asked in the run loop's next
  /// pass.
  static void type(NSWindow *window, NSString *typed) {
    [window makeFirstResponder:recipientsIn(window)];
    [[recipientsIn(window) currentEditor] insertText:typed];
  }

  static NSUInteger windowsOnScreen() {
    NSUInteger count = 0;
    for (NSWindow *window in [NSApp windows]) count += [window isVisible] != NO;
    return count;
  }

  static void pressAllButtons(NSWindow *window) {
    for (NSView *view : viewsIn(window)) {
      if ([view isKindOfClass:[NSButton class]] && ![view isKindOfClass:[NSPopUpButton class]]) {
        [static_cast<NSButton *>(view) sendAction:[static_cast<NSButton *>(view) action]
                                               to:[static_cast<NSButton *>(view) target]];
      }
    }
  }

  NSUInteger callsOfAgent() const { return [agent.calls() count]; }
};

}  // namespace

TEST_F(ClosedWindow, OfTheSendTabReachesNoController) {
  SendAndCopyTabController *const controller = openSend(0);
  NSArray *const tabs = @[ [controller sendFile], [controller sendCopyFile] ];
  NSWindow *const window = [controller window];
  ASSERT_GT(viewsThatReachControllers(window), 0);
  closed(controller, [](NSWindow *) {});
  EXPECT_EQ(viewsThatReachControllers(window), 0);
  EXPECT_EQ([recipientsIn(window) delegate], nil);
  EXPECT_EQ([tabs count], 2u);
}

TEST_F(ClosedWindow, OfTheInviteTabReachesNoController) {
  BrisvaleTabController *const controller = openShare(1);
  NSArray *const tabs = @[ [controller givePermissionTab], [controller sendInviteTab] ];
  NSWindow *const window = [controller window];
  ASSERT_GT(viewsThatReachControllers(window), 0);
  closed(controller, [](NSWindow *) {});
  EXPECT_EQ(viewsThatReachControllers(window), 0);
  EXPECT_EQ([recipientsIn(window) delegate], nil);
  EXPECT_EQ([tabs count], 2u);
}

TEST_F(ClosedWindow, IsNoLongerKnownToItsTabs) {
  SendAndCopyTabController *const sending = openSend(0);
  NSMutableArray *const tabs =
      [NSMutableArray arrayWithObjects:[sending sendFile], [sending sendCopyFile], nil];
  BrisvaleTabController *const sharing = openShare(0);
  [tabs addObjectsFromArray:@[ [sharing givePermissionTab], [sharing sendInviteTab] ]];
  closeWindows();
  for (TabController *tab in tabs) {
    EXPECT_EQ([tab ourMainWindow], nil) << text(tab);
    EXPECT_EQ([tab modalWindow], nil) << text(tab);
    EXPECT_EQ([tab modalWindowText], nil) << text(tab);
  }
}

TEST_F(ClosedWindow, ListsNoCompletionsForWhatWasTypedBefore) {
  SendAndCopyTabController *const controller = openSend(0);
  // Retained, so that it could receive messages.
  [[[controller sendFile] retain] autorelease];
  closed(controller, [](NSWindow *window) { type(window, @"an"); });
  const NSUInteger windows = windowsOnScreen();
  handlePostedEvents();
  EXPECT_EQ(windowsOnScreen(), windows);
}

TEST_F(ClosedWindow, AsksNobodyForCompletionsInTheSendTab) {
  NSWindow *window = nil;
  @autoreleasepool {
    window = [closed(openSend(0), [](NSWindow *shown) { type(shown, @"an"); }) retain];
  }
  ASSERT_EQ(ended([SendFileController class]), 1);
  handlePostedEvents();
  [window autorelease];
}

TEST_F(ClosedWindow, AsksNobodyForCompletionsInTheInviteTab) {
  NSWindow *window = nil;
  @autoreleasepool {
    window = [closed(openShare(1), [](NSWindow *shown) { type(shown, @"an"); }) retain];
  }
  ASSERT_EQ(ended([InviteTabController class]), 1);
  handlePostedEvents();
  [window autorelease];
}

TEST_F(ClosedWindow, MakesTokensOfWhatIsStillEditedWithoutItsController) {
  NSWindow *window = nil;
  @autoreleasepool {
    window = [closed(openSend(0), [](NSWindow *shown) { type(shown, @"anna@x.org"); }) retain];
  }
  ASSERT_EQ(ended([SendFileController class]), 1);
  [window endEditingFor:nil];
  EXPECT_EQ(text([recipientsIn(window) stringValue]), "anna@x.org");
  [window autorelease];
}

TEST_F(ClosedWindow, HasButtonsInTheSendTabThatDoNothing) {
  NSWindow *const window = closedSend(0);
  ASSERT_EQ(ended([SendFileController class]), 1);
  ASSERT_EQ(ended([CopyLinkController class]), 1);
  const NSUInteger calls = callsOfAgent();
  pressAllButtons(window);
  EXPECT_EQ(callsOfAgent(), calls);
}

TEST_F(ClosedWindow, HasRowsAndButtonsInTheShareWindowThatDoNothing) {
  @autoreleasepool {
    NSWindow *const window = closedShare(0);
    ASSERT_EQ(ended([InviteTabController class]), 1);
    const NSUInteger calls = callsOfAgent();
    pressAllButtons(window);
    EXPECT_EQ(callsOfAgent(), calls);
    EXPECT_EQ([window attachedSheet], nil);
  }
  // The binding of its list has retained it as long as the window.
  EXPECT_TRUE(handleEventsUntil(permissionsTabHasEnded));
}

TEST_F(ClosedWindow, LeavesTheIndicatorsOfTheSendWindowStopped) {
  EXPECT_TRUE(stopsIndicators(openSend(0)));
}

TEST_F(ClosedWindow, LeavesTheIndicatorsOfTheShareWindowStopped) {
  EXPECT_TRUE(stopsIndicators(openShare(1)));
}

TEST_F(ClosedWindow, LeavesNoMenuToTheNextWindow) {
  NSUInteger windows = 0;
  @autoreleasepool {
    NSWindow *const window = [openSend(0) window];
    windows = windowsOnScreen();
    [popUpIn(window) performClick:nil];
    ASSERT_EQ(windowsOnScreen(), windows + 1);
    closeWindows();
  }
  // The application is unhidden, and with it what was hidden.
  @autoreleasepool {
    openSend(0);
    handlePostedEvents();
  }
  EXPECT_EQ(windowsOnScreen(), windows);
}

TEST_F(ClosedWindow, LeavesASuccessToItsTimer) {
  std::function<bool()> tabHasEnded;
  @autoreleasepool {
    closed(openSend(0), [&](NSWindow *shown) {
      SendAndCopyTabController *const controller = [shown windowController];
      tabHasEnded = endOf([controller sendFile]);
      [[controller sendFile] showSuccessModalWindow:@"fileSentSuccessMessageTextKey"];
    });
  }
  EXPECT_TRUE(handleEventsUntil(tabHasEnded));
}

// A message to a deallocated object may go unnoticed, because its memory is unchanged.
TEST(ClosedWindowWithZombies, SendsNothingToWhatHasEnded) {
  NSString *const program = [[NSBundle mainBundle] executablePath];
  // With a session of its own.
  ChildProcess child({"/usr/bin/env", "--unset=PRIVATE_DESKTOP", "NSZombieEnabled=YES",
                      "CRASH_ON_ZOMBIE=YES", [program fileSystemRepresentation],
                      "--gtest_filter=ClosedWindow.*"});
  EXPECT_EQ(child.waitForEnd(), 0) << child.output();
  EXPECT_GT(child.countInOutput("[       OK ] ClosedWindow."), 0) << child.output();
}
