#include <optional>

#import "tests/support/Arguments.h"
#include "tests/support/CapturedLog.h"
#import "tests/support/Events.h"
#include "tests/support/HeldReply.h"
#include "tests/support/RepeatingTimer.h"
#include "tests/support/TypeAheadUser.h"
#include "tests/ui/ActivationsInLog.h"
#include "tests/ui/PermissionsTab.h"
#import "tests/ui/ReadingOrder.h"
#import "text/LocalizedText.h"

namespace {

NSString *const kRevoke = @"revokeAccess:::";
NSString *const kNobody = @"notSharingTextMessageKey";
NSString *const kSuccess = @"permissionRevokedSuccessMessageTextFormatKey";

constexpr NSUInteger kYes = 0;
constexpr NSUInteger kNo = 1;

struct PermissionsTabRemovals : PermissionsTab {
  void openWith(int count, NSDictionary *revokeReply) {
    answer(people(count), kRevoke, revokeReply);
    openLoaded();
  }
  void openAndAnswerYes(int count, NSDictionary *revokeReply, NSUInteger row) {
    openWith(count, revokeReply);
    press(askToRemove(row), kYes);
  }
};

}  // namespace

TEST_F(PermissionsTabRemovals, TheButtonAsksFirst) {
  openWith(
      3,
      @{@"reply" : success(@1)});
  askToRemove(1);
  EXPECT_TRUE(sheetShows(localizedText(@"unshareMessageTextKey")));
  EXPECT_EQ(calls(kRevoke), 0u);
  EXPECT_EQ([[tab personList] count], 3u);
}

TEST_F(PermissionsTabRemovals, YesTakesTheAccessOfThePersonInTheRowAway) {
  openAndAnswerYes(
      3,
      @{@"reply" : success(@1)}, 1);
  EXPECT_TRUE(([argumentsOfLast(kRevoke) isEqual:@[ @"p0001@example.org", @"folder-1", @1 ]]));
  ASSERT_EQ([[tab personList] count], 2u);
  EXPECT_EQ(text([nameIn(0) stringValue]), "First0000 Last");
  EXPECT_EQ(text([nameIn(1) stringValue]), "First0002 Last");
  EXPECT_TRUE(showsList());
}

TEST_F(PermissionsTabRemovals, ARemovalIsShownAsASuccessAndNotLogged) {
  openWith(
      3,
      @{@"reply" : success(@1)});
  const CapturedLog log;
  const ActivationsInLog activations(log);
  press(askToRemove(1), kYes);
  EXPECT_EQ(log.lines(), activations.with({}));
  EXPECT_TRUE(handleEventsUntil([&] { return sheet() == [tab modalWindow]; }));
  EXPECT_EQ(text([[tab modalWindowText] stringValue]), text(localizedText(kSuccess)));
  EXPECT_TRUE([spinner() isHidden]);
}

TEST_F(PermissionsTabRemovals, TheQuestionHasGoneAndTheSpinnerTurnsWhileTheAgentIsAsked) {
  const HeldReply hold;
  openWith(3, hold.entry(@{@"reply" : success(@1)}));
  NSWindow *const question = askToRemove(1);
  std::optional<bool> hadGone;
  bool turned = false;
  const RepeatingTimer look(NSConnectionReplyMode, [&] {
    if (calls(kRevoke) == 0) return;
    turned |= ![spinner() isHidden] && [[spinner() valueForKey:@"isRunning"] boolValue];
    if (!hadGone) hadGone = ![question isVisible];
    hold.release();
  });
  press(question, kYes);
  EXPECT_EQ(hadGone, true);
  EXPECT_TRUE(turned);
  EXPECT_TRUE([spinner() isHidden]);
}

TEST_F(PermissionsTabRemovals, TheSecondButtonOnlyLogs) {
  openWith(
      3,
      @{@"reply" : success(@1)});
  NSWindow *const question = askToRemove(1);
  const CapturedLog log;
  const ActivationsInLog activations(log);
  press(question, kNo);
  EXPECT_EQ(log.lines(), activations.with({"result: Cancel"}));
  EXPECT_EQ([[tab personList] count], 3u);
  EXPECT_EQ(calls(kRevoke), 0u);
}

TEST_F(PermissionsTabRemovals, EscapeIsTheSecondButton) {
  openWith(
      3,
      @{@"reply" : success(@1)});
  NSWindow *const question = askToRemove(1);
  const CapturedLog log;
  const ActivationsInLog activations(log);
  postKeys(question, @"\033");
  EXPECT_TRUE(handleEventsUntil([&] { return sheet() == nil; }));
  EXPECT_EQ(log.lines(), activations.with({"result: Cancel"}));
  EXPECT_EQ(calls(kRevoke), 0u);
}

TEST_F(PermissionsTabRemovals, TheKeyboardIsWhereItWasAfterEscape) {
  openWith(
      3,
      @{@"reply" : success(@1)});
  [[window window] makeFirstResponder:removeIn(1)];
  postKeys([window window], @" ");
  ASSERT_TRUE(handleEventsUntil([&] { return sheet() != nil; }));
  postKeys(sheet(), @"\033");
  ASSERT_TRUE(handleEventsUntil([&] { return sheet() == nil; }));
  EXPECT_EQ([[window window] firstResponder], removeIn(1));
}

TEST_F(PermissionsTabRemovals, TheKeyboardIsInTheNextRowAfterwards) {
  openWith(
      4,
      @{@"reply" : success(@1)});
  [[window window] makeFirstResponder:removeIn(1)];
  postKeys([window window], @" ");
  ASSERT_TRUE(handleEventsUntil([&] { return sheet() != nil; }));
  postKeys(sheet(), @"\r");
  ASSERT_TRUE(handleEventsUntil([&] { return sheet() == [tab modalWindow]; }));
  ASSERT_TRUE(handleEventsUntil([&] { return sheet() == nil; }));
  EXPECT_EQ([[window window] firstResponder], removeIn(1));
  EXPECT_EQ(text([[person(1) useremail] substringToIndex:5]), "p0002");
}

TEST_F(PermissionsTabRemovals, TheKeyboardIsInTheLastRowAfterThatOfTheLastOneAndThenAtDone) {
  openWith(
      2,
      @{@"reply" : success(@1)});
  [[window window] makeFirstResponder:removeIn(1)];
  [tab revokeAccessToUser:@1];
  EXPECT_EQ([[window window] firstResponder], removeIn(0));
  [tab revokeAccessToUser:@0];
  NSButton *const done = viewsInReadingOrder([window window]).back();
  EXPECT_EQ(text([done title]), "Done");
  EXPECT_EQ([[window window] firstResponder], done);
}

TEST_F(PermissionsTabRemovals, TheKeyboardStaysWhereItIsOutsideTheRows) {
  openWith(
      2,
      @{@"reply" : success(@1)});
  id const before = [[window window] firstResponder];
  [tab revokeAccessToUser:@1];
  EXPECT_EQ([[window window] firstResponder], before);
}

TEST_F(PermissionsTabRemovals, OtherReturnCodesDoNothing) {
  openWith(
      1,
      @{@"reply" : success(@1)});
  const CapturedLog log;
  const ActivationsInLog activations(log);
  [tab handleResult:nil withResult:-1 withSender:nullptr];
  EXPECT_EQ(log.lines(), activations.with({"result: Default Case"}));
  for (const int code : {0, 1, 999, 1002, -1000}) {
    [tab handleResult:nil withResult:code withSender:nullptr];
  }
  EXPECT_EQ(log.lines(), activations.with({"result: Default Case"}));
  EXPECT_EQ(calls(kRevoke), 0u);
}

TEST(AnswerAboutARemoval, ArrivesInThePlatformsTypes) {
  NSMethodSignature *const answer = [PermissionTabController
      instanceMethodSignatureForSelector:@selector(handleResult:withResult:withSender:)];
  EXPECT_STREQ([answer getArgumentTypeAtIndex:3], @encode(NSInteger));
  EXPECT_STREQ([answer getArgumentTypeAtIndex:4], @encode(void *));
}

TEST_F(PermissionsTabRemovals, TheContextIsTheRow) {
  openWith(
      3,
      @{@"reply" : success(@1)});
  [tab handleResult:nil withResult:1000 withSender:reinterpret_cast<void *>(2)];
  EXPECT_EQ(text([argumentsOfLast(kRevoke) objectAtIndex:revoke_operation::kUserEmail]),
            "p0002@example.org");
}

TEST_F(PermissionsTabRemovals, RemovingTheLastRowEndsWithTheLocalizedText) {
  openAndAnswerYes(
      1,
      @{@"reply" : success(@1)}, 0);
  EXPECT_TRUE(showsStatus(localizedText(kNobody)));
  EXPECT_EQ([[tab personList] count], 0u);
}

TEST_F(PermissionsTabRemovals, ARemovalWithoutAQuestionEndsWithTheFixedText) {
  openWith(
      1,
      @{@"reply" : success(@1)});
  [tab revokeAccessToUser:@0];
  EXPECT_TRUE(showsStatus(@"You are not currently sharing this folder with anyone."));
}

TEST_F(PermissionsTabRemovals, ARefusalIsTheAgentsReasonAndTheRowStays) {
  openWith(2, @{@"reply" : refusal(9, @"locked")});
  const CapturedLog log;
  const ActivationsInLog activations(log);
  press(askToRemove(0), kYes);
  EXPECT_TRUE(handleEventsUntil([&] { return sheet() != nil; }));
  EXPECT_EQ(log.lines(), activations.with({}));
  EXPECT_TRUE(sheetShows(@"The access could not be changed: locked"));
  EXPECT_EQ([[tab personList] count], 2u);
  EXPECT_TRUE(showsList());
  EXPECT_TRUE([spinner() isHidden]);
}

TEST_F(PermissionsTabRemovals, KeysPressedWhileARefusedRemovalRunsDoNotDismissItsAlertUnread) {
  openWith(2, hold.entry(@{@"reply" : refusal(9, @"locked")}));
  NSWindow *const question = askToRemove(0);
  const TypeAheadUser user(
      [window window], @"\r", [&] { return calls(kRevoke) == 1; }, [&] { resumeAgent(); });
  press(question, kYes);
  EXPECT_TRUE(handleEventsUntil([&] { return sheet() != nil; }));
  handlePostedEvents();
  EXPECT_TRUE(user.hasTyped());
  EXPECT_TRUE(sheetShows(@"The access could not be changed: locked"));
}

TEST_F(PermissionsTabRemovals, AKeyPressedBeforeTheQuestionShowsDoesNotAnswerIt) {
  openWith(
      2,
      @{@"reply" : success(@1)});
  postClick(removeIn(0));
  postKeys([window window], @"\r");
  EXPECT_TRUE(handleEventsUntil([&] { return sheet() != nil; }));
  handlePostedEvents();
  EXPECT_TRUE(sheetShows(localizedText(@"unshareMessageTextKey")));
  EXPECT_EQ(calls(kRevoke), 0u);
}

TEST_F(PermissionsTabRemovals, WithoutAnAnswerTheRowStaysAndTheUserIsTold) {
  for (NSDictionary *reply in @[ @{@"nil" : @1}, @{@"reply" : @{}}, @{@"die" : @"before"} ]) {
    openWith(2, reply);
    NSWindow *const question = askToRemove(0);
    const CapturedLog log;
    const ActivationsInLog activations(log);
    press(question, kYes);
    EXPECT_TRUE(handleEventsUntil([&] { return sheet() != nil; }));
    EXPECT_TRUE(sheetShows(localizedText(@"cannotConnectToBrisvaleMessageTextKey")));
    EXPECT_TRUE(sheetShows(localizedText(@"cannotConnectToBrisvaleInformativeTextKey")));
    EXPECT_EQ(log.lines(), activations.with({kNoReplyLine}));
    EXPECT_EQ([[tab personList] count], 2u);
    close();
  }
}

TEST_F(PermissionsTabRemovals, ARowThatDoesNotExistIsNotAskedFor) {
  openWith(
      2,
      @{@"reply" : success(@1)});
  [tab revokeAccessToUser:@2];
  [tab revokeAccessToUser:@-1];
  EXPECT_EQ(calls(kRevoke), 0u);
  EXPECT_EQ([[tab personList] count], 2u);
}

TEST_F(PermissionsTabRemovals, TheListIsToldThroughItsOwnAccessor) {
  openWith(
      3,
      @{@"reply" : success(@1)});
  NSMutableArray *const rows = [tab personList];
  [tab revokeAccessToUser:@1];
  EXPECT_EQ([tab personList], rows);
  EXPECT_EQ([rows count], 2u);
}

TEST_F(PermissionsTabRemovals, AllRowsCanBeRemovedOneAfterTheOther) {
  openWith(
      3,
      @{@"reply" : success(@1)});
  for (int left = 2; left >= 0; --left) {
    press(askToRemove(0), kYes);
    EXPECT_EQ([[tab personList] count], static_cast<NSUInteger>(left));
    EXPECT_TRUE(
        handleEventsUntil([&] { return sheet() == nil && ![[tab modalWindow] isVisible]; }));
  }
  EXPECT_TRUE(showsStatus(localizedText(kNobody)));
}
