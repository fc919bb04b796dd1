#include <ostream>

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "tests/support/CountsAsRunning.h"
#include "tests/support/DelayedCall.h"
#import "tests/ui/WindowFixtures.h"

namespace {

/// The last timer of a success that was scheduled, and what the sheet said by then.
struct ScheduledTimer {
  NSTimeInterval seconds = 0;
  id target = nil;
  id panel = nil;
  BOOL repeats = YES;
  std::string textBefore;
};

ScheduledTimer scheduled;

constinit platform::ReplacedMethod<NSTimer *(NSTimeInterval, id, SEL, id, BOOL)> platformSchedule;

/// The last panel that the application has ended as a sheet, and what could be seen then.
struct EndedSheet {
  NSWindow *panel = nil;
  bool showedPanel = true;
  size_t windows = 0;
};

EndedSheet endedSheet;

constinit platform::ReplacedMethod<void(NSWindow *)> platformEndSheet;

void recordEnd(id self, SEL selector, NSWindow *panel) {
  endedSheet = {panel, [panel isVisible] != NO, WindowsWithoutAgent::visibleWindows().size()};
  platformEndSheet(self, selector, panel);
}

/// What the application has been told to bring to the front, and by whom.
struct Fronts {
  NSWindow *window = nil;
  id sender = nil;
  bool isActivated = false;
};

Fronts fronts;

constinit platform::ReplacedMethod<void(id)> platformFront;
constinit platform::ReplacedMethod<void(BOOL)> platformActivate;

void recordFront(id self, SEL selector, id sender) {
  fronts.window = self;
  fronts.sender = sender;
  platformFront(self, selector, sender);
}

void recordActivation(id self, SEL selector, BOOL ignoringOthers) {
  fronts.isActivated = fronts.isActivated || ignoringOthers;
  platformActivate(self, selector, ignoringOthers);
}

void recordEnds() {
  platformEndSheet.install(object_getClass(NSApp), @selector(endSheet:), recordEnd);
  endedSheet = {};
}

NSTimer *recordTimer(id self, SEL selector, NSTimeInterval seconds, id target, SEL action,
                     id userInfo, BOOL repeats) {
  if (sel_isEqual(action, @selector(killModalWindow:))) {
    scheduled = {seconds, target, userInfo, repeats, text([[target modalWindowText] stringValue])};
  }
  return platformSchedule(self, selector, seconds, target, action, userInfo, repeats);
}

struct SuccessSheet : Windows {
  static bool shows(NSWindow *window, const std::string &wanted) {
    const auto texts = textsIn(window);
    return std::find(texts.begin(), texts.end(), wanted) != texts.end();
  }
};

struct SuccessSheetOfTab;

/// A tab and its success.
struct Tab {
  const char *name;
  TabController *(*open)(SuccessSheetOfTab &);
  NSString *key;
  std::string text;
  /// The titles of the windows that are left, and the lines of the log, when the sheet has gone.
  std::vector<std::string> windowsLeft;
  Lines lines;
};

void PrintTo(const Tab &tab, std::ostream *out) {
  *out << tab.name;
}

struct SuccessSheetOfTab : SuccessSheet, testing::WithParamInterface<Tab> {
  /// Whether a window that can be seen has a sheet. (The window itself may have gone.)
  static bool isUp() {
    for (NSWindow *window : visibleWindows()) {
      if ([window attachedSheet] != nil) return true;
    }
    return false;
  }

  static std::vector<std::string> titles() {
    std::vector<std::string> titles;
    for (NSWindow *window : visibleWindows()) titles.push_back(text([window title]));
    return titles;
  }
};

TabController *sendTab(SuccessSheetOfTab &test) {
  return [test.openSend(0) sendFile];
}
TabController *copyLinkTab(SuccessSheetOfTab &test) {
  return [test.openSend(1) sendCopyFile];
}
TabController *inviteTab(SuccessSheetOfTab &test) {
  return [test.openShare(1) sendInviteTab];
}
TabController *permissionsTab(SuccessSheetOfTab &test) {
  return [test.openShare(0) givePermissionTab];
}

}  // namespace

TEST_P(SuccessSheetOfTab, IsUpForThreeSecondsAndForLessThanThreeAndAHalf) {
  TabController *const tab = GetParam().open(*this);
  ASSERT_NE(tab, nil);
  bool wasUpAtThreeSeconds = false;
  bool hasEnded = false;
  bool wasUpLater = true;
  const DelayedCall threeSeconds(3.0, [&] { wasUpAtThreeSeconds = isUp(); });
  [tab showSuccessModalWindow:GetParam().key];
  const DelayedCall later(3.5, [&] {
    hasEnded = true;
    wasUpLater = isUp();
  });
  EXPECT_TRUE(shows([[tab ourMainWindow] attachedSheet], GetParam().text));
  EXPECT_TRUE(handleEventsUntil([&] { return hasEnded; }));
  EXPECT_TRUE(wasUpAtThreeSeconds);
  EXPECT_FALSE(wasUpLater);
  EXPECT_EQ(titles(), GetParam().windowsLeft);
  EXPECT_EQ([NSApp isHidden] != NO, GetParam().windowsLeft.empty());
  EXPECT_EQ(log.lines(), withActivations(GetParam().lines));
}

INSTANTIATE_TEST_SUITE_P(Of, SuccessSheetOfTab,
                         testing::Values(Tab{"Send",
                                             sendTab,
                                             @"fileSentSuccessMessageTextKey",
                                             "The link to the file has been sent.",
                                             {},
                                             {"window closed"}},
                                         Tab{"CopyLink",
                                             copyLinkTab,
                                             @"linkCopiedSuccessMessageTextKey",
                                             "The link is on the clipboard.",
                                             {},
                                             {"window closed"}},
                                         Tab{"Invite",
                                             inviteTab,
                                             @"folderSharedSuccessMessageTextKey",
                                             "The folder is now shared.",
                                             {"Share Folder"},
                                             {}},
                                         Tab{"Permissions",
                                             permissionsTab,
                                             @"permissionsUpdatedSuccessTextKey",
                                             "The access has been changed.",
                                             {"Share Folder"},
                                             {}}),
                         [](const auto &info) { return info.param.name; });

TEST_F(SuccessSheet, ItsTimerIsStartedForThreeSecondsBeforeItsTextIsSet) {
  const SEL schedule = @selector(scheduledTimerWithTimeInterval:target:selector:userInfo:repeats:);
  platformSchedule.install(object_getClass([NSTimer class]), schedule, recordTimer);
  InviteTabController *const tab = [openShare(1) sendInviteTab];
  [[tab modalWindowText] setStringValue:@"before"];
  [tab showSuccessModalWindow:@"folderSharedSuccessMessageTextKey"];
  EXPECT_EQ(scheduled.seconds, 3.0);
  EXPECT_EQ(scheduled.target, tab);
  EXPECT_EQ(scheduled.panel, [tab modalWindow]);
  EXPECT_FALSE(scheduled.repeats);
  EXPECT_EQ(scheduled.textBefore, "before");
}

/// The platform does some of it for a sheet by itself.
TEST_F(SuccessSheet, OrdersItsWindowToTheFrontAndActivatesTheApplication) {
  platformFront.install([NSWindow class], @selector(makeKeyAndOrderFront:), recordFront);
  platformActivate.install(object_getClass(NSApp), @selector(activateIgnoringOtherApps:),
                           recordActivation);
  InviteTabController *const tab = [openShare(1) sendInviteTab];
  fronts = {};
  [tab showSuccessModalWindow:@"folderSharedSuccessMessageTextKey"];
  EXPECT_EQ(fronts.window, [tab ourMainWindow]);
  EXPECT_EQ(fronts.sender, tab);
  EXPECT_TRUE(fronts.isActivated);
}

TEST_F(SuccessSheet, ItsPanelIsOrderedOutBeforeItEnds) {
  recordEnds();
  InviteTabController *const tab = [openShare(1) sendInviteTab];
  NSWindow *const window = [tab ourMainWindow];
  [tab showSuccessModalWindow:@"folderSharedSuccessMessageTextKey"];
  EXPECT_TRUE(handleEventsUntil([&] { return [window attachedSheet] == nil; }));
  EXPECT_EQ(endedSheet.panel, [tab modalWindow]);
  EXPECT_FALSE(endedSheet.showedPanel);
}

TEST_F(SuccessSheet, EndsBeforeTheSendWindowCloses) {
  recordEnds();
  for (int position = 0; position < 2; ++position) {
    SendAndCopyTabController *const controller = openSend(position);
    TabController *const tab = position == 0 ? static_cast<TabController *>([controller sendFile])
                                             : [controller sendCopyFile];
    NSWindow *const panel = [[[tab modalWindow] retain] autorelease];
    [tab showSuccessModalWindow:@"fileSentSuccessMessageTextKey"];
    EXPECT_TRUE(handleEventsUntil([] { return visibleWindows().empty(); }));
    EXPECT_EQ(endedSheet.panel, panel);
    EXPECT_EQ(endedSheet.windows, 1u);
  }
}

TEST_F(SuccessSheet, IsNotVisibleAfterItsEndAndItsWindowHasTheKeyboard) {
  const CountsAsRunning running;
  InviteTabController *const tab = [openShare(1) sendInviteTab];
  NSWindow *const window = [tab ourMainWindow];
  [tab showSuccessModalWindow:@"folderSharedSuccessMessageTextKey"];
  NSWindow *const sheet = [window attachedSheet];
  ASSERT_TRUE([sheet isVisible]);
  EXPECT_TRUE(handleEventsUntil([&] { return [window attachedSheet] == nil; }));
  EXPECT_FALSE([sheet isVisible]);
  EXPECT_TRUE([window isKeyWindow]);
}

TEST_F(SuccessSheet, HasNothingThatWouldEndItEarly) {
  SendAndCopyTabController *const controller = openSend(1);
  NSWindow *const window = [controller window];
  [[controller sendCopyFile] showSuccessModalWindow:@"linkCopiedSuccessMessageTextKey"];
  postKeys([window attachedSheet], @"\x1b");
  postKeys([window attachedSheet], @"\r");
  postKeys(window, @"\x1b");
  handlePostedEvents();
  EXPECT_NE([window attachedSheet], nil);
  EXPECT_TRUE([window isVisible]);
}

TEST_F(SuccessSheet, AKeyWithoutATextIsAnEmptyLineAndALineInTheLog) {
  BrisvaleTabController *const controller = openShare(1);
  [[controller sendInviteTab] showSuccessModalWindow:@"noSuchTextKey"];
  ASSERT_NE([[controller window] attachedSheet], nil);
  EXPECT_EQ(text([[[controller sendInviteTab] modalWindowText] stringValue]), "");
  EXPECT_EQ(log.lines(), withActivations({"No text for \"noSuchTextKey\""}));
}

TEST_F(SuccessSheet, TwoInARowEndAfterThreeSecondsOfTheFirst) {
  BrisvaleTabController *const controller = openShare(1);
  NSWindow *const window = [controller window];
  const double first = detail::secondsNow();
  [[controller sendInviteTab] showSuccessModalWindow:@"folderSharedSuccessMessageTextKey"];
  [[controller sendInviteTab] showSuccessModalWindow:@"permissionsUpdatedSuccessTextKey"];
  EXPECT_TRUE(shows([window attachedSheet], "The access has been changed."));
  EXPECT_TRUE(handleEventsUntil([&] { return [window attachedSheet] == nil; }));
  EXPECT_GE(detail::secondsNow() - first, 2.99);
  EXPECT_TRUE([window isVisible]);
  EXPECT_EQ([[[controller sendInviteTab] modalWindow] isVisible], NO);
}

TEST_F(SuccessSheet, AnAlertShownWhileItIsUpWaitsForItsEnd) {
  BrisvaleTabController *const controller = openShare(1);
  NSWindow *const window = [controller window];
  NSWindow *const sheet = [[controller sendInviteTab] modalWindow];
  [[controller sendInviteTab] showSuccessModalWindow:@"folderSharedSuccessMessageTextKey"];
  NSAlert *const alert = [[[NSAlert alloc] init] autorelease];
  [alert setMessageText:@"afterwards"];
  [alert beginSheetModalForWindow:window modalDelegate:nil didEndSelector:NULL contextInfo:NULL];
  EXPECT_EQ([window attachedSheet], sheet);
  EXPECT_TRUE(handleEventsUntil(
      [&] { return [window attachedSheet] != nil && [window attachedSheet] != sheet; }));
  EXPECT_TRUE(shows([window attachedSheet], "afterwards"));
}

TEST_F(SuccessSheet, BringsTheWindowAndTheApplicationToTheFront) {
  SendAndCopyTabController *const controller = openSend(1);
  NSWindow *const window = [controller window];
  [window orderOut:nil];
  [NSApp deactivate];
  [[controller sendCopyFile] showSuccessModalWindow:@"linkCopiedSuccessMessageTextKey"];
  EXPECT_TRUE([window isVisible]);
  EXPECT_TRUE(handleEventsUntil([&] { return [NSApp isActive] && [NSApp keyWindow] != nil; }));
}
