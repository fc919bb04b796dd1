#include <ostream>

#import "tests/ui/HidingObserver.h"
#import "tests/ui/WindowFixtures.h"

namespace {

const std::string kClosedByOpener = "recieve Notification - close share folder window";
const std::string kSendClosedByOpener = "recieve Notification close send/copy window.";
const std::string kClosed = "window closed";

struct ShareWindow : Windows {};

NSInteger selectedTab(BrisvaleTabController *controller) {
  NSTabView *const tabs = [controller shareFolderTab];
  return [tabs indexOfTabViewItem:[tabs selectedTabViewItem]];
}

}  // namespace

TEST_F(ShareWindow, PositionZeroShowsThePermissionsAndOneTheInvitation) {
  BrisvaleTabController *controller = openShare(0);
  ASSERT_NE(controller, nil);
  EXPECT_EQ(selectedTab(controller), 0);
  EXPECT_EQ(text([[[controller shareFolderTab] selectedTabViewItem] label]), "People");
  controller = openShare(1);
  ASSERT_NE(controller, nil);
  EXPECT_EQ(selectedTab(controller), 1);
  EXPECT_EQ(text([[[controller shareFolderTab] selectedTabViewItem] label]), "Invite");
}

TEST_F(ShareWindow, OpeningItTwiceClosesTheOldOneAndShowsANewOne) {
  @autoreleasepool {
    BrisvaleTabController *const first = openShare();
    countEndsOf([BrisvaleTabController class]);
    BrisvaleTabController *const second = openShare();
    EXPECT_NE(second, nil);
    EXPECT_NE(first, second);
    EXPECT_EQ(visibleWindows().size(), 1u);
  }
  EXPECT_EQ(ended([BrisvaleTabController class]), 1);
  EXPECT_EQ(log.lines(), withActivations({kClosedByOpener, kClosed}));
  EXPECT_FALSE([delegate contextMenuFlag]);
  EXPECT_FALSE([NSApp isHidden]);
}

TEST_F(ShareWindow, OpeningItClosesTheSendWindowInTheSameWay) {
  @autoreleasepool {
    openSend();
    countEndsOf([SendAndCopyTabController class]);
    EXPECT_NE(openShare(), nil);
  }
  EXPECT_EQ(ended([SendAndCopyTabController class]), 1);
  EXPECT_EQ(log.lines(), withActivations({kSendClosedByOpener, kClosed}));
}

TEST_F(ShareWindow, OpeningTheSendWindowClosesIt) {
  @autoreleasepool {
    openShare();
    countEndsOf([BrisvaleTabController class]);
    EXPECT_NE(openSend(), nil);
  }
  EXPECT_EQ(ended([BrisvaleTabController class]), 1);
  EXPECT_EQ(log.lines(), withActivations({kClosedByOpener, kClosed}));
}

TEST_F(ShareWindow, TheMenuIsEnabledBeforeTheApplicationHides) {
  BrisvaleTabController *const controller = openShare();
  HidingObserver *const observer = [[[HidingObserver alloc] init] autorelease];
  [controller close];
  EXPECT_EQ(observer->hidings, 1);
  EXPECT_TRUE(observer->flag);
}

TEST_F(ShareWindow, AnIndexGivenAfterLoadingHasNoVisibleEffect) {
  BrisvaleTabController *const controller = openShare(0);
  [controller selectTabAtPosition:1];
  handlePostedEvents();
  EXPECT_EQ(selectedTab(controller), 0);
}

TEST_F(ShareWindow, AnIndexOutsideTheTabsShowsTheFirst) {
  BrisvaleTabController *const controller = openShare(7);
  ASSERT_NE(controller, nil);
  EXPECT_EQ(selectedTab(controller), 0);
}

namespace {

struct Closing {
  const char *name;
  void (*close)(BrisvaleTabController *);
  Lines lines = {kClosed};
};

void PrintTo(const Closing &closing, std::ostream *out) {
  *out << closing.name;
}

void byTheCloseButton(BrisvaleTabController *controller) {
  [[controller window] performClose:nil];
}
void byClose(BrisvaleTabController *controller) {
  [controller close];
}
void byTheNotification(BrisvaleTabController *) {
  [[NSNotificationCenter defaultCenter] postNotificationName:@"newInstanceofWindowOpened"
                                                      object:nil];
}
void byDone(BrisvaleTabController *controller) {
  [Windows::button([controller window], @"Done") performClick:nil];
}
void byReturn(BrisvaleTabController *controller) {
  postKeys([controller window], @"\r");
}
void byCancelOnTheInviteTab(BrisvaleTabController *controller) {
  [[controller shareFolderTab] selectTabViewItemAtIndex:1];
  [Windows::button([controller window], @"Cancel") performClick:nil];
}

struct ShareWindowClosed : Windows, testing::WithParamInterface<Closing> {};

}  // namespace

TEST_P(ShareWindowClosed, RunsTheSamePath) {
  std::function<bool()> inviteTabHasEnded;
  @autoreleasepool {
    BrisvaleTabController *const controller = openShare();
    ASSERT_NE(controller, nil);
    EXPECT_FALSE([delegate contextMenuFlag]);
    countEndsOf([BrisvaleTabController class]);
    inviteTabHasEnded = endOf([controller sendInviteTab]);
    GetParam().close(controller);
    EXPECT_TRUE(handleEventsUntil([] { return visibleWindows().empty(); }));
    handlePostedEvents();
  }
  EXPECT_EQ(log.lines(), withActivations(GetParam().lines));
  EXPECT_TRUE([delegate contextMenuFlag]);
  EXPECT_TRUE([NSApp isHidden]);
  EXPECT_EQ(ended([BrisvaleTabController class]), 1);
  EXPECT_TRUE(inviteTabHasEnded());
}

INSTANTIATE_TEST_SUITE_P(
    ByAnyPath, ShareWindowClosed,
    testing::Values(Closing{"CloseButton", byTheCloseButton}, Closing{"Close", byClose},
                    Closing{"Notification", byTheNotification, {kClosedByOpener, kClosed}},
                    Closing{"Done", byDone}, Closing{"Return", byReturn},
                    Closing{"CancelOnInviteTab", byCancelOnTheInviteTab}),
    [](const auto &info) { return info.param.name; });

TEST_F(ShareWindow, BothTabsEndUpWithTheFolderAndTheKindOfItsReference) {
  BrisvaleTabController *const controller = openShare(0, @"id-9");
  EXPECT_EQ(text([[controller givePermissionTab] filePath]), "id-9");
  EXPECT_TRUE([[controller givePermissionTab] isFileId]);
  EXPECT_EQ(text([[controller sendInviteTab] filePath]), "id-9");
  EXPECT_TRUE([[controller sendInviteTab] isFileId]);
}

TEST_F(ShareWindow, UntilTheyAreToldThePermissionsTabHasAnIdAndTheInviteTabAPath) {
  PermissionTabController *const permissions = [[[PermissionTabController alloc] init] autorelease];
  EXPECT_TRUE([permissions isFileId]);
  [permissions disconnectFromWindow];
  EXPECT_FALSE([[[[InviteTabController alloc] init] autorelease] isFileId]);
}

TEST_F(ShareWindow, AccessIsReadOnlyUntilSomebodyChoosesOtherwise) {
  NSWindow *const window = [openShare(1) window];
  NSButton *const access = button(window, @"Read only");
  ASSERT_TRUE([access isKindOfClass:[NSPopUpButton class]]);
  EXPECT_EQ([static_cast<NSPopUpButton *>(access) indexOfSelectedItem], 1);
  EXPECT_EQ(text([static_cast<NSPopUpButton *>(access) itemTitleAtIndex:0]), "Read and write");
}
