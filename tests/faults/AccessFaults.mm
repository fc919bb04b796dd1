// What a user gets whose agent fails while the people with access are fetched, while a person's
// access is changed, and while it is removed.
#import "tests/faults/FaultTest.h"
#include "tests/ui/PermissionsTab.h"
#import "text/LocalizedText.h"

namespace {

NSString *const kList = @"getAccess::";
NSString *const kGrant = @"grantAccess:::::::::";
NSString *const kRevoke = @"revokeAccess:::";
constexpr int kPeople = 3;

NSDictionary *healthyList() {
  return
      [NSDictionary dictionaryWithObject:[NSDictionary dictionaryWithObject:success(people(kPeople))
                                                                     forKey:@"reply"]
                                  forKey:kList];
}

struct List : FaultTest<PermissionsWindow> {
  ~List() override { finish(); }

  void expect(Outcome outcome) const {
    switch (outcome) {
      case Outcome::Succeeds:
        EXPECT_TRUE(showsList());
        EXPECT_EQ([[tab personList] count], static_cast<NSUInteger>(kPeople));
        break;
      case Outcome::Nobody:
        EXPECT_EQ(text([status() stringValue]), shown(@"notSharingTextMessageKey"));
        EXPECT_EQ([[tab personList] count], 0u);
        break;
      default:
        EXPECT_TRUE(showsStatus(localizedText(@"cannotConnectToBrisvaleNowTextKey")));
    }
    EXPECT_EQ(logged(), withActivations({}));
    EXPECT_EQ(sheet(), nil);
    EXPECT_TRUE([spinner() isHidden]);
    EXPECT_TRUE([[window window] isVisible]);
  }
};

struct Change : List {
  NSUInteger row = 1;

  void openHealthy() {
    begin(healthyList());
    openLoaded();
    mark();
  }

  bool sheetHas(NSString *key) const { return sheetShows(formatted(localizedText(key))); }

  /// The explanation in the fault's reply, "" where there is none; nil where the agent generates
  /// it.
  NSString *explanation() const {
    NSDictionary *const entry = fault().entry(@"granted");
    if ([entry objectForKey:@"messageLength"] != nil) return nil;
    id const message = [[entry objectForKey:@"reply"] objectForKey:@"errorMessage"];
    return [message isKindOfClass:[NSString class]] ? message : @"";
  }

  /// An alert for a refusal or a missing reply.
  void expectAlert(Outcome outcome) const {
    if (outcome == Outcome::Refused) {
      EXPECT_EQ(logged(), withActivations({}));
      EXPECT_FALSE(sheetHas(@"cannotConnectToBrisvaleMessageTextKey"));
      NSString *const reason = explanation();
      EXPECT_TRUE(
          reason == nil ||
          sheetShows(formatted(localizedText(@"cannotRevokePermissionTextFormatKey"), reason)));
    } else {
      EXPECT_EQ(logged(), withActivations({kNoReplyLine}));
      EXPECT_TRUE(sheetHas(@"cannotConnectToBrisvaleMessageTextKey"));
    }
    EXPECT_NE(sheet(), [tab modalWindow]);
  }

  void expectSuccess(NSString *key) const {
    EXPECT_EQ(logged(), withActivations({}));
    EXPECT_EQ(sheet(), [tab modalWindow]);
    EXPECT_EQ(text([[tab modalWindowText] stringValue]), text(localizedText(key)));
  }

  void expectAfterAction(Outcome outcome, NSString *keyOfSuccess) const {
    ASSERT_NE(sheet(), nil);
    EXPECT_TRUE([spinner() isHidden]);
    EXPECT_TRUE(showsList());
    if (outcome == Outcome::Succeeds) return expectSuccess(keyOfSuccess);
    expectAlert(outcome);
  }

  /// Opens another window and waits for its list.
  void openAgain() {
    close();
    openLoaded();
    mark();
  }
};

struct Remove : Change {
  void remove() { press(askToRemove(row), 0); }

  /// The result sheet is shown after the question has been closed.
  void waitForOutcome() const {
    EXPECT_TRUE(handleEventsUntil([&] { return sheet() != nil; }));
  }
};

}  // namespace

TEST_P(List, ShowsWhatCameOfItAndWorksAgain) {
  begin();
  openWindow();
  agent.injectFault(kList, people(kPeople));
  mark();
  [tab setFilePath:@"folder-1"];
  ASSERT_TRUE(waitUntilLoaded());
  agent.injectFaultAfterwards();
  expect(outcome());
  agent.recover(kList, people(kPeople));
  [[NSNotificationCenter defaultCenter] postNotificationName:@"UserAddedToShareFolder" object:nil];
  expect(Outcome::Succeeds);
}

TEST_P(Change, TellsWhatCameOfItAndWorksAgain) {
  openHealthy();
  agent.injectFault(kGrant, @"granted");
  choose(row, @"accessPermissionReadWriteKey");
  agent.injectFaultAfterwards();
  expectAfterAction(outcome(), @"permissionsUpdatedSuccessTextKey");
  // Changed first, and never put back.
  EXPECT_EQ([person(row) accessPermission], 1);
  agent.recover(kGrant, @"granted");
  openAgain();
  choose(row, @"accessPermissionReadWriteKey");
  expectAfterAction(Outcome::Succeeds, @"permissionsUpdatedSuccessTextKey");
}

TEST_P(Remove, TellsWhatCameOfItAndWorksAgain) {
  openHealthy();
  agent.injectFault(kRevoke, @1);
  remove();
  agent.injectFaultAfterwards();
  waitForOutcome();
  expectAfterAction(outcome(), @"permissionRevokedSuccessMessageTextFormatKey");
  const bool isGone = outcome() == Outcome::Succeeds;
  EXPECT_EQ([[tab personList] count], static_cast<NSUInteger>(isGone ? kPeople - 1 : kPeople));
  agent.recover(kRevoke, @1);
  openAgain();
  remove();
  waitForOutcome();
  expectAfterAction(Outcome::Succeeds, @"permissionRevokedSuccessMessageTextFormatKey");
}

INSTANTIATE_TEST_SUITE_P(Row, List, testing::ValuesIn(testedCellsOf(Column::List)), nameOfRow);
INSTANTIATE_TEST_SUITE_P(Row, Change, testing::ValuesIn(testedCellsOf(Column::Change)), nameOfRow);
INSTANTIATE_TEST_SUITE_P(Row, Remove, testing::ValuesIn(testedCellsOf(Column::Remove)), nameOfRow);
