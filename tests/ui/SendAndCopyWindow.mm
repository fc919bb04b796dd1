#include <ostream>

#import "tests/ui/HidingObserver.h"
#import "tests/ui/WindowFixtures.h"

/// A window controller whose interface file does not exist.
@interface ControllerWithoutInterface : TabWindowController {
 @private
  std::int64_t defaultTab;
}
@property (nonatomic, assign) std::int64_t defaultTab;
@end

@implementation ControllerWithoutInterface

@synthesize defaultTab;

- (id)init {
  return [super initWithWindowNibName:@"NoSuchInterface"];
}

@end

namespace {

const std::string kClosedByOpener = "recieve Notification close send/copy window.";
const std::string kClosed = "window closed";

struct SendAndCopyWindow : Windows {};

NSInteger selectedTab(SendAndCopyTabController *controller) {
  NSTabView *const tabs = [controller sendAndCopyTab];
  return [tabs indexOfTabViewItem:[tabs selectedTabViewItem]];
}

}  // namespace

TEST_F(SendAndCopyWindow, PositionOneShowsTheCopyLinkTabAndZeroTheSendTab) {
  SendAndCopyTabController *controller = openSend(1);
  ASSERT_NE(controller, nil);
  EXPECT_EQ(selectedTab(controller), 1);
  controller = openSend(0);
  ASSERT_NE(controller, nil);
  EXPECT_EQ(selectedTab(controller), 0);
}

TEST_F(SendAndCopyWindow, AnIndexSetBeforeLoadingHasTheSameEffectThroughTheProperty) {
  SendAndCopyTabController *const controller = [[SendAndCopyTabController alloc] init];
  [controller setDefaultTab:1];
  [controller showWindow:nil];
  EXPECT_EQ(selectedTab(controller), 1);
}

TEST_F(SendAndCopyWindow, AnIndexGivenAfterLoadingHasNoVisibleEffect) {
  SendAndCopyTabController *const controller = openSend(0);
  [controller selectTabAtPosition:1];
  handlePostedEvents();
  EXPECT_EQ([controller defaultTab], 1);
  EXPECT_EQ(selectedTab(controller), 0);
}

TEST_F(SendAndCopyWindow, AnIndexOutsideTheTabsShowsTheFirst) {
  for (const std::int64_t odd : {std::int64_t{-1}, std::int64_t{2}, INT64_MIN, INT64_MAX}) {
    [[NSNotificationCenter defaultCenter] postNotificationName:@"newInstanceofWindowOpened"
                                                        object:nil];
    SendAndCopyTabController *const controller = [[SendAndCopyTabController alloc] init];
    [controller selectTabAtPosition:odd];
    [controller showWindow:nil];
    EXPECT_EQ(selectedTab(controller), 0) << odd;
  }
}

TEST_F(SendAndCopyWindow, IsNotLoadedByInit) {
  SendAndCopyTabController *const controller = [[SendAndCopyTabController alloc] init];
  EXPECT_FALSE([controller isWindowLoaded]);
  EXPECT_EQ(text([controller windowNibName]), "MainWindow");
  [controller showWindow:nil];
}

TEST_F(SendAndCopyWindow, OpeningItTwiceLeavesExactlyOneWindow) {
  @autoreleasepool {
    SendAndCopyTabController *const first = openSend();
    countEndsOf([SendAndCopyTabController class]);
    SendAndCopyTabController *const second = openSend();
    EXPECT_NE(second, nil);
    EXPECT_NE(first, second);
    EXPECT_EQ(visibleWindows().size(), 1u);
  }
  EXPECT_EQ(ended([SendAndCopyTabController class]), 1);
  EXPECT_EQ(log.lines(), withActivations({kClosedByOpener, kClosed}));
}

TEST_F(SendAndCopyWindow, DoesNotCloseItselfWhenItIsOpened) {
  openSend();
  EXPECT_EQ(log.lines(), withActivations({}));
}

namespace {

/// A way to close the window.
struct Closing {
  const char *name;
  void (*close)(SendAndCopyTabController *);
  Lines lines = {kClosed};
};

void PrintTo(const Closing &closing, std::ostream *out) {
  *out << closing.name;
}

void byTheCloseButton(SendAndCopyTabController *controller) {
  [[controller window] performClose:nil];
}
void byClose(SendAndCopyTabController *controller) {
  [controller close];
}
void byTheNotification(SendAndCopyTabController *) {
  [[NSNotificationCenter defaultCenter] postNotificationName:@"newInstanceofWindowOpened"
                                                      object:nil];
}
void byCancelOnTheSendTab(SendAndCopyTabController *controller) {
  [Windows::button([controller window], @"Cancel") performClick:nil];
}
void byCancelOnTheCopyTab(SendAndCopyTabController *controller) {
  [[controller sendAndCopyTab] selectTabViewItemAtIndex:1];
  [Windows::button([controller window], @"Cancel") performClick:nil];
}
void byEscape(SendAndCopyTabController *controller) {
  postKeys([controller window], @"\x1b");
}

struct SendAndCopyWindowClosed : Windows, testing::WithParamInterface<Closing> {};

}  // namespace

TEST_P(SendAndCopyWindowClosed, LogsOnceEnablesTheMenuHidesAndEndsTheController) {
  std::function<bool()> sendTabHasEnded;
  std::function<bool()> copyTabHasEnded;
  @autoreleasepool {
    SendAndCopyTabController *const controller = openSend();
    ASSERT_NE(controller, nil);
    EXPECT_FALSE([delegate contextMenuFlag]);
    countEndsOf([SendAndCopyTabController class]);
    sendTabHasEnded = endOf([controller sendFile]);
    copyTabHasEnded = endOf([controller sendCopyFile]);
    GetParam().close(controller);
    EXPECT_TRUE(handleEventsUntil([] { return visibleWindows().empty(); }));
    handlePostedEvents();
  }
  EXPECT_EQ(log.lines(), withActivations(GetParam().lines));
  EXPECT_TRUE([delegate contextMenuFlag]);
  EXPECT_TRUE([NSApp isHidden]);
  EXPECT_EQ(ended([SendAndCopyTabController class]), 1);
  EXPECT_TRUE(sendTabHasEnded());
  EXPECT_TRUE(copyTabHasEnded());
}

INSTANTIATE_TEST_SUITE_P(
    ByAnyPath, SendAndCopyWindowClosed,
    testing::Values(Closing{"CloseButton", byTheCloseButton}, Closing{"Close", byClose},
                    Closing{"Notification", byTheNotification, {kClosedByOpener, kClosed}},
                    Closing{"CancelOnSendTab", byCancelOnTheSendTab},
                    Closing{"CancelOnCopyTab", byCancelOnTheCopyTab}, Closing{"Escape", byEscape}),
    [](const auto &info) { return info.param.name; });

TEST_F(SendAndCopyWindow, IsNoObserverAnyMoreWhenItHasGone) {
  openSend();
  byTheNotification(nil);
  byTheNotification(nil);
  EXPECT_EQ(log.lines(), withActivations({kClosedByOpener, kClosed}));
}

TEST_F(SendAndCopyWindow, CopiesTheFilePathThatItIsGiven) {
  SendAndCopyTabController *const controller = openSend();
  NSMutableString *const path = [NSMutableString stringWithString:@"/a"];
  [controller setFilePath:path];
  [path appendString:@"/b"];
  EXPECT_EQ(text([controller filePath]), "/a");
}

TEST_F(SendAndCopyWindow, TheKeyboardBeginsAtTheFirstControlOfTheShownTab) {
  NSWindow *window = [openSend(0) window];
  EXPECT_TRUE([[window firstResponder] isKindOfClass:[NSTextView class]]);
  window = [openSend(1) window];
  EXPECT_TRUE([[window firstResponder] isKindOfClass:[NSPopUpButton class]])
      << text([window firstResponder]);
}

TEST_F(SendAndCopyWindow, TabGoesThroughAllControlsOfTheCopyTabAndAround) {
  NSWindow *const window = [openSend(1) window];
  std::vector<id> seen;
  for (int i = 0; i < 14; ++i) {
    seen.push_back([window firstResponder]);
    postKeys(window, @"\t");
    handlePostedEvents();
  }
  for (NSString *title in @[
         @"Unlimited", @"Notify me of each download", @"Ask for an e-mail address first", @"Cancel",
         @"Copy Link"
       ]) {
    EXPECT_GE(std::count(seen.begin(), seen.end(), button(window, title)), 2) << text(title);
    EXPECT_NE(std::find(seen.begin(), seen.end(), button(window, title)), seen.end())
        << text(title);
  }
}

TEST_F(SendAndCopyWindow, TheMenuIsEnabledBeforeTheApplicationHides) {
  SendAndCopyTabController *const controller = openSend();
  HidingObserver *const observer = [[[HidingObserver alloc] init] autorelease];
  [controller close];
  EXPECT_EQ(observer->hidings, 1);
  EXPECT_TRUE(observer->flag);
}

TEST_F(SendAndCopyWindow, OpensInTheMiddleOfTheScreenEachTime) {
  SendAndCopyTabController *const controller = openSend();
  // Where a window has no title bar, as without a window manager, cascading moves none.
  EXPECT_FALSE([controller shouldCascadeWindows]);
  NSWindow *const window = [controller window];
  const NSPoint opened = [window frame].origin;
  [window setFrameOrigin:NSZeroPoint];
  [window center];
  // Halves of points may be rounded.
  EXPECT_NEAR([window frame].origin.x, opened.x, 1);
  EXPECT_NEAR([window frame].origin.y, opened.y, 1);
}

using WindowWithoutInterface = WindowsWithoutAgent;

TEST_F(WindowWithoutInterface, LeavesTheFlagSetAndNoControllerBehind) {
  countEndsOf([ControllerWithoutInterface class]);
  for (const bool isInFront : {false, true}) {
    @autoreleasepool {
      EXPECT_EQ(openTabWindow([ControllerWithoutInterface class],
                              { .isInFrontOfAllApplications = isInFront }),
                nil);
    }
    EXPECT_TRUE([delegate contextMenuFlag]);
  }
  EXPECT_EQ(ended([ControllerWithoutInterface class]), 2);
}
