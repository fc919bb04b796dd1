// Failures while a folder is shared, after which the window must be usable.

#import "tests/e2e/ShareTab.h"
#import "tests/e2e/WindowTest.h"
#import "tests/support/Arguments.h"
#include "tests/support/HeldReply.h"

namespace {

NSString *const kGetAccess = @"getAccess::";
NSString *const kGrant = @"grantAccess:::::::::";
NSString *const kRevoke = @"revokeAccess:::";
const std::string kTitle = "Share Folder";
/// Colleagues in the scripted agent's address book.
const std::string kThree = "user0@example.org,user1@example.org,user2@example.org,";

NSDictionary *answered(id value) {
  return @{@"reply" : success(value)};
}

struct ShareFolderFaults : WindowTest, ShareTab {
  /// What the agent waits for in the call that is scripted with held.
  const HeldReply hold;

  NSDictionary *held(id value) const { return hold.entry(@{@"reply" : success(value)}); }
  void resumeAgent() const { hold.release(); }

  bool openShare(const ShareCall &call = {}) {
    if (!open(call)) return false;
    window = onlyWindow(kTitle);
    return !window.number.empty();
  }

  bool waitForCalls(NSString *operation, NSUInteger count) const {
    return waitFor([&] { return callsOf(operation) == count; });
  }

  /// Where the sheet is on the screen, when there is one.
  ScreenArea areaOfSheet() const {
    EXPECT_TRUE(waitForWindows(2));
    for (const ScreenWindow &each : windowsOnScreen()) {
      if (each.number != window.number) return each.area;
    }
    return {};
  }

  /// The agent ends in the middle of a call, another one starts, and the alert is dismissed.
  void replaceAgentBehindAlert(NSDictionary *script) {
    endAgent();
    ASSERT_TRUE(waitFor([&] { return linesInLog(kNoReplyLine) == 1; }));
    ASSERT_TRUE(waitForWindows(2));
    startAgent();
    agent->setScript(script);
    ASSERT_TRUE(dismissAlert());
  }
};

}  // namespace

TEST_F(ShareFolderFaults, AnAgentThatIsKilledOverTheListIsToldWithoutAnAlert) {
  agent->setScript(@{kGetAccess : held(readers(3))});
  ASSERT_TRUE(openShare());
  ASSERT_TRUE(waitForCalls(kGetAccess, 1));
  const std::string fetching = settledPicture(onScreen(kStatusText));
  ASSERT_NE(fetching, "");
  endAgent();
  EXPECT_TRUE(waitFor([&] { return picture(onScreen(kStatusText)) != fetching; }));
  EXPECT_NE(settledPicture(onScreen(kStatusText)), "");
  EXPECT_EQ(windowsOnScreen().size(), 1u);
  EXPECT_TRUE(seesRows(0));
}

TEST_F(ShareFolderFaults, AfterAListThatDidNotComeAnInvitationShowsIt) {
  agent->setScript(@{kGetAccess : held(readers(3))});
  ASSERT_TRUE(openShare());
  ASSERT_TRUE(waitForCalls(kGetAccess, 1));
  endAgent();
  startAgent();
  agent->setScript(@{kGetAccess : answered(readers(2)), kGrant : answered(@{})});
  goTo(kInviteLabel);
  click(kInviteRecipients);
  typeText(kThree);
  click(kInviteButton);
  ASSERT_TRUE(seesSuccess());
  goTo(kPeopleLabel);
  EXPECT_TRUE(seesRows(2));
}

TEST_F(ShareFolderFaults, AnAlertIsDrawnBeforeTheListIsLoadedAgain) {
  agent->setScript(
      @{kGetAccess : @[ answered(@[]), held(@[]) ],
        kGrant : @{@"reply" : refusal(1, @"no")}});
  ASSERT_TRUE(openShare({.tab = 1}));
  ASSERT_TRUE(waitForCalls(kGetAccess, 1));
  typeText("user0@example.org,");
  click(kInviteButton);
  ASSERT_TRUE(waitForCalls(kGetAccess, 2));
  const ScreenArea alert = areaOfSheet();
  const std::string drawn = settledPicture(alert);
  EXPECT_NE(drawn, "");
  resumeAgent();
  EXPECT_EQ(settledPicture(alert), drawn);
}

TEST_F(ShareFolderFaults, AnAgentThatIsKilledOverTheSecondOfThreeLeavesAllRecipients) {
  agent->setScript(@{kGrant : @[ answered(@{}), held(@{}) ]});
  ASSERT_TRUE(openShare({.tab = 1}));
  typeText(kThree);
  click(kInviteButton);
  ASSERT_TRUE(waitForCalls(kGrant, 2));
  replaceAgentBehindAlert(@{kGrant : answered(@{})});
  EXPECT_EQ(callsOf(kGrant), 0u);  // the third was not tried
  click(kInviteButton);
  ASSERT_TRUE(seesSuccess());
  EXPECT_EQ(callsOf(kGrant), 3u);
  EXPECT_EQ(text([argumentsOf(kGrant) objectAtIndex:grant_operation::kUserEmail]),
            "user2@example.org");
}

TEST_F(ShareFolderFaults, AnAgentThatIsKilledOverAChangeLeavesTheNewLevelInTheRow) {
  agent->setScript(@{kGetAccess : answered(readers(3)), kGrant : held(@{})});
  ASSERT_TRUE(openShare());
  ASSERT_TRUE(seesRows(3));
  chooseAccess(1, kReadOnly, kReadWrite);
  ASSERT_TRUE(waitForCalls(kGrant, 1));
  replaceAgentBehindAlert(@{kGrant : answered(@{})});
  chooseAccess(1, kReadWrite, kReadOnly);
  ASSERT_TRUE(seesSuccess());
  NSArray *const first = [argumentsOf(kGrant) subarrayWithRange:NSMakeRange(0, 5)];
  EXPECT_TRUE(([first isEqual:@[ @"reader1@example.org", @"id-2", @1, @0, @0 ]])) << text(first);
}

TEST_F(ShareFolderFaults, AnAgentThatIsKilledOverARemovalLeavesTheRow) {
  agent->setScript(@{kGetAccess : answered(readers(3)), kRevoke : held(@{})});
  ASSERT_TRUE(openShare());
  ASSERT_TRUE(seesRows(3));
  ASSERT_TRUE(askToRemove(1));
  pressKeys({"Return"});
  ASSERT_TRUE(waitForCalls(kRevoke, 1));
  replaceAgentBehindAlert(@{kRevoke : answered(@{})});
  EXPECT_TRUE(seesRows(3));
  ASSERT_TRUE(askToRemove(1));
  pressKeys({"Return"});
  ASSERT_TRUE(seesSuccess());
  EXPECT_EQ(text([argumentsOf(kRevoke) objectAtIndex:revoke_operation::kUserEmail]),
            "reader1@example.org");
  EXPECT_TRUE(seesRows(2));
}

TEST_F(ShareFolderFaults, AWindowIsClosedWhileItsListIsFetchedAndTheNextOneShowsIt) {
  agent->setScript(@{kGetAccess : @[ held(readers(4)), answered(readers(2)) ]});
  ASSERT_TRUE(openShare());
  ASSERT_TRUE(waitForCalls(kGetAccess, 1));
  pressKeys({"Return"});  // the button "Done"
  EXPECT_TRUE(waitForWindows(0));
  resumeAgent();
  ASSERT_TRUE(openShare());
  EXPECT_TRUE(seesRows(2));
  EXPECT_EQ(callsOf(kGetAccess), 2u);
}

TEST_F(ShareFolderFaults, AWindowOpenedWhileAnotherOnesListIsFetchedShowsItsOwn) {
  agent->setScript(@{kGetAccess : @[ held(readers(4)), answered(readers(2)) ]});
  ASSERT_TRUE(openShare({.item = "id-former"}));
  ASSERT_TRUE(waitForCalls(kGetAccess, 1));
  ASSERT_TRUE(openShare({.item = "id-next"}));
  resumeAgent();
  EXPECT_TRUE(seesRows(2));
  EXPECT_EQ(callsOf(kGetAccess), 2u);
  EXPECT_EQ(text([argumentsOf(kGetAccess) objectAtIndex:access_operation::kPathOrId]), "id-next");
  EXPECT_EQ(linesInLog("window closed"), 1);
}

TEST_F(ShareFolderFaults, WhileTheListIsFetchedTheIndicatorIsOnTheScreen) {
  agent->setScript(@{kGetAccess : held(readers(2))});
  ASSERT_TRUE(openShare());
  ASSERT_TRUE(waitForCalls(kGetAccess, 1));
  // Where it is hidden there is one colour, for which picture returns "".
  EXPECT_TRUE(waitFor([&] { return !picture(onScreen(kIndicator)).empty(); }));
  resumeAgent();
  EXPECT_TRUE(seesRows(2));
  EXPECT_TRUE(waitFor([&] { return picture(onScreen(kIndicator)).empty(); }));
}
