#include <optional>

#import "tests/support/Arguments.h"
#include "tests/support/CapturedLog.h"
#import "tests/support/Events.h"
#include "tests/support/HeldReply.h"
#include "tests/support/RepeatingTimer.h"
#include "tests/support/TypeAheadUser.h"
#include "tests/ui/ActivationsInLog.h"
#include "tests/ui/PermissionsTab.h"
#import "text/LocalizedText.h"

namespace {

NSString *const kGrant = @"grantAccess:::::::::";
NSString *const kWriter = @"accessPermissionReadWriteKey";
NSString *const kReader = @"accessPermissionReadOnlyKey";

struct PermissionsTabChanges : PermissionsTab {
  /// A person with read access, and one with write access.
  void openWith(NSDictionary *grantReply) {
    answer(@[ reader(@"rea", @"der", @"r@x.org"), writer(@"wri", @"ter", @"w@x.org") ], kGrant,
           grantReply);
    openLoaded();
  }

  static bool isMenuOpen() {
    for (NSWindow *each in [NSApp windows]) {
      if ([each isKindOfClass:NSClassFromString(@"NSMenuPanel")] && [each isVisible]) return true;
    }
    return false;
  }

  void openMenuByKeyboard(NSPopUpButton *popUp) const {
    ASSERT_TRUE([[window window] makeFirstResponder:popUp]);
    postKeys([window window], @" ");
    ASSERT_TRUE(handleEventsUntil(isMenuOpen));
  }
};

}  // namespace

TEST_F(PermissionsTabChanges, AChoiceReachesTheAgentWithAllItsArguments) {
  openWith(@{@"reply" : success(@1)});
  choose(0, kWriter);
  NSArray *const expected = @[
    @"r@x.org", @"folder-1", @1, @1, @1, @1, @1, @0, localizedText(@"permissionNotifyMessageKey")
  ];
  EXPECT_TRUE([argumentsOfLast(kGrant) isEqual:expected]) << text(argumentsOfLast(kGrant));
}

TEST_F(PermissionsTabChanges, ReadingOnlyIsGrantedWithoutTheWritingRights) {
  openWith(@{@"reply" : success(@1)});
  choose(1, kReader);
  NSArray *const arguments = argumentsOfLast(kGrant);
  EXPECT_EQ(text([arguments objectAtIndex:grant_operation::kUserEmail]), "w@x.org");
  EXPECT_TRUE(([[arguments subarrayWithRange:NSMakeRange(2, 3)] isEqual:@[ @1, @0, @0 ]]));
}

TEST_F(PermissionsTabChanges, ASuccessIsShownAndTheRowHasTheNewLevel) {
  openWith(@{@"reply" : success(@1)});
  const CapturedLog log;
  const ActivationsInLog activations(log);
  choose(0, kWriter);
  EXPECT_EQ(log.lines(), activations.with({}));
  EXPECT_EQ(sheet(), [tab modalWindow]);
  EXPECT_EQ(text([[tab modalWindowText] stringValue]),
            text(localizedText(@"permissionsUpdatedSuccessTextKey")));
  EXPECT_EQ([person(0) accessPermission], 1);
  EXPECT_EQ(text([person(0) permission]), text(localizedText(kWriter)));
  EXPECT_EQ(text([accessIn(0) titleOfSelectedItem]), text(localizedText(kWriter)));
  EXPECT_TRUE([spinner() isHidden]);
}

TEST_F(PermissionsTabChanges, TheRowHasTheNewLevelAndTheSpinnerTurnsWhileTheAgentIsAsked) {
  const HeldReply hold;
  openWith(hold.entry(@{@"reply" : success(@1)}));
  SharedWith *const changed = person(0);
  std::optional<bool> wasChanged;
  bool turned = false;
  const RepeatingTimer look(NSConnectionReplyMode, [&] {
    if (calls(kGrant) == 0) return;
    turned |= ![spinner() isHidden] && [[spinner() valueForKey:@"isRunning"] boolValue];
    if (!wasChanged) wasChanged = [changed accessPermission] == 1;
    hold.release();
  });
  choose(0, kWriter);
  EXPECT_EQ(wasChanged, true);
  EXPECT_TRUE(turned);
  EXPECT_TRUE([spinner() isHidden]);
}

TEST_F(PermissionsTabChanges, ThePopUpsRowIsSelected) {
  openWith(@{@"reply" : success(@1)});
  choose(1, kReader);
  EXPECT_EQ([outlet<NSArrayController>("arrayController") selectionIndex], 1u);
}

TEST_F(PermissionsTabChanges, TheLevelThatTheRowHasAlreadyIsNoChange) {
  openWith(@{@"reply" : success(@1)});
  choose(0, kReader);
  EXPECT_EQ(calls(kGrant), 0u);
  EXPECT_EQ(sheet(), nil);
  EXPECT_EQ([person(0) accessPermission], 0);
}

TEST_F(PermissionsTabChanges, ARefusalIsTheAgentsReasonAndTheRowKeepsTheNewLevel) {
  openWith(@{@"reply" : refusal(5, @"50% only")});
  const CapturedLog log;
  const ActivationsInLog activations(log);
  choose(0, kWriter);
  EXPECT_EQ(log.lines(), activations.with({}));
  ASSERT_NE(sheet(), nil);
  EXPECT_TRUE(sheetShows(@"The access could not be changed: 50% only"));
  EXPECT_EQ(text([accessIn(0) titleOfSelectedItem]), text(localizedText(kWriter)));
  EXPECT_EQ([person(0) accessPermission], 1);
  EXPECT_TRUE([spinner() isHidden]);
}

TEST_F(PermissionsTabChanges, WithoutAnAnswerTheRowKeepsTheNewLevelAndTheUserIsTold) {
  for (NSDictionary *reply in @[ @{@"nil" : @1}, @{@"reply" : @{}}, @{@"die" : @"before"} ]) {
    openWith(reply);
    const CapturedLog log;
    const ActivationsInLog activations(log);
    choose(0, kWriter);
    EXPECT_TRUE(sheetShows(localizedText(@"cannotConnectToBrisvaleMessageTextKey")));
    EXPECT_TRUE(sheetShows(localizedText(@"cannotConnectToBrisvaleInformativeTextKey")));
    EXPECT_EQ(log.lines(), activations.with({kNoReplyLine}));
    EXPECT_EQ(text([accessIn(0) titleOfSelectedItem]), text(localizedText(kWriter)));
    EXPECT_EQ([person(0) accessPermission], 1);
    close();
  }
}

TEST_F(PermissionsTabChanges, KeysPressedWhileARefusedChangeRunsDoNotDismissItsAlertUnread) {
  openWith(hold.entry(@{@"reply" : refusal(5, @"no")}));
  const TypeAheadUser user(
      [window window], @"\r", [&] { return calls(kGrant) == 1; }, [&] { resumeAgent(); });
  choose(0, kWriter);
  handlePostedEvents();
  EXPECT_TRUE(user.hasTyped());
  EXPECT_TRUE(sheetShows(@"The access could not be changed: no"));
}

TEST_F(PermissionsTabChanges, KeysPressedWhileTheAgentGoesDoNotDismissTheAlertUnread) {
  openWith(hold.entry(@{@"die" : @"before"}));
  const TypeAheadUser user(
      [window window], @"\r", [&] { return calls(kGrant) == 1; }, [&] { resumeAgent(); });
  choose(0, kWriter);
  handlePostedEvents();
  EXPECT_TRUE(user.hasTyped());
  EXPECT_TRUE(sheetShows(localizedText(@"cannotConnectToBrisvaleMessageTextKey")));
}

TEST_F(PermissionsTabChanges, AnAlertLeavesTheWindowOpenAndTheListInPlace) {
  openWith(@{@"reply" : refusal(5, @"no")});
  choose(0, kWriter);
  press(sheet(), 0);
  EXPECT_TRUE([[window window] isVisible]);
  EXPECT_TRUE(showsList());
}

TEST_F(PermissionsTabChanges, TheSuccessSheetGoesByItselfAndTheWindowStays) {
  openWith(@{@"reply" : success(@1)});
  choose(0, kWriter);
  ASSERT_NE(sheet(), nil);
  EXPECT_TRUE(handleEventsUntil([&] { return sheet() == nil; }));
  EXPECT_TRUE([[window window] isVisible]);
}

TEST_F(PermissionsTabChanges, AChoiceByKeyboardReachesTheAgent) {
  openWith(@{@"reply" : success(@1)});
  openMenuByKeyboard(accessIn(0));
  const unichar up = NSUpArrowFunctionKey;
  postKeys([window window], [NSString stringWithCharacters:&up length:1]);
  postKeys([window window], @"\r");
  EXPECT_TRUE(handleEventsUntil([&] { return calls(kGrant) == 1; }));
  EXPECT_EQ([person(0) accessPermission], 1);
}

TEST_F(PermissionsTabChanges, AnOpenMenuClosesWithItsRow) {
  openWith(@{@"reply" : success(@1)});
  openMenuByKeyboard(accessIn(0));
  [tab listenNotification:nil];
  handlePostedEvents();
  EXPECT_FALSE(isMenuOpen());
  openMenuByKeyboard(accessIn(1));
  close();
  EXPECT_FALSE(isMenuOpen());
}

TEST_F(PermissionsTabChanges, AControlOfARowThatIsGoneDoesNothing) {
  openWith(@{@"reply" : success(@1)});
  NSPopUpButton *const popUp = [[accessIn(0) retain] autorelease];
  NSView *const row = [[[popUp superview] retain] autorelease];
  answerList(@[ writer(@"wri", @"ter", @"w@x.org") ]);
  [tab listenNotification:nil];
  [tab popUpButtonSelectionDidChange:popUp];
  [tab removeEntryClicked:[[row subviews] lastObject]];
  EXPECT_EQ(sheet(), nil);
  EXPECT_EQ(calls(kGrant), 0u);
}
