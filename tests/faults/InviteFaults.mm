// What a user gets whose agent fails at the first, the second or the last of three invited people:
// when access is granted, and before that, when they are looked up.
#include <set>

#import "tests/faults/EndedThreads.h"
#import "tests/faults/FaultTest.h"
#include "tests/ui/WindowFixtures.h"
#import "text/LocalizedText.h"
#import "windows/Recipients.h"

namespace {

NSString *const kGrant = @"grantAccess:::::::::";
NSString *const kUserInfo = @"getUserInfo::";
const std::vector<std::string> kPeople = {"a@x.de", "b@x.de", "c@x.de"};

NSDictionary *person() {
  return @{@"userfname" : @"anna", @"userlname" : @"meier", @"useremail" : @"a@x.de"};
}

NSDictionary *colleague() {
  return @{@"accountemployee" : @1, @"name" : @"Anna Meier", @"primaryemail" : @"a@x.de"};
}

struct Invite : FaultTest<WindowsWithoutAgent> {
  BrisvaleTabController *controller = nil;
  EndedThreads *threads = nil;
  bool hasRecovered = false;
  NSString *invited = @"a@x.de,b@x.de,c@x.de";

  NSWindow *window() { return [controller window]; }
  NSTokenField *recipients() {
    for (NSView *view in [[[[controller shareFolderTab] tabViewItemAtIndex:1] view] subviews]) {
      if ([view isKindOfClass:[NSTokenField class]]) return static_cast<NSTokenField *>(view);
    }
    return nil;
  }

  /// The list is fetched from the same agent before anything is pressed. Without an agent the load
  /// waits at the same time as the invitation.
  void open() {
    threads = [[[EndedThreads alloc] init] autorelease];
    controller = openShare(1, @"folder-1");
    if (fault().processFault != ProcessFault::Absent || hasRecovered) waitForList();
    [recipients() setStringValue:invited];
    mark();
  }

  void waitForList() const {
    EXPECT_TRUE(handleEventsUntil([&] { return threads->count > 0; }));
  }

  /// None of them has to be looked up.
  void openKnowingAll() {
    open();
    [delegate setEmployeeContacts:[NSMutableArray arrayWithArray:recipientsIn(invited)]];
  }

  void invite() {
    [button(window(), @"Invite") performClick:nil];
    handlePostedEvents();
  }

  bool sheetShows(const std::string &wanted) {
    const auto texts = textsIn([window() attachedSheet]);
    return std::find(texts.begin(), texts.end(), wanted) != texts.end();
  }

  void expect(Outcome outcome, NSUInteger place) {
    ASSERT_NE([window() attachedSheet], nil);
    std::string left = text(invited);
    switch (outcome) {
      case Outcome::Succeeds:
        EXPECT_EQ(logged(), withActivations({}));
        EXPECT_TRUE(sheetShows(shown(@"folderSharedSuccessMessageTextKey")));
        left = "";
        break;
      case Outcome::Refused:
        EXPECT_EQ(logged(), withActivations({}));
        EXPECT_TRUE(sheetShows(shown(@"invalidEmployeeErrorMessageTextKey")));
        EXPECT_TRUE(sheetShows(
            text(formatted(localizedText(@"invalidEmployeeErrorInformativeTextFormatKey"),
                           [NSString stringWithUTF8String:kPeople[place].c_str()]))));
        break;
      default:
        EXPECT_EQ(logged(), withActivations({kNoReplyLine}));
        EXPECT_TRUE(
            sheetShows(text(formatted(localizedText(@"cannotConnectToBrisvaleMessageTextKey")))));
    }
    EXPECT_TRUE([window() isVisible]);
    EXPECT_FALSE([delegate contextMenuFlag]);
    EXPECT_EQ(text(clipboardText()), "former contents");
    EXPECT_EQ(text([recipients() stringValue]), left);
  }

  /// The person in a reply is read before the next one is invited, which then has no reply when the
  /// agent died of that. After the last one nobody is invited any more.
  Outcome outcomeAt(NSUInteger place) const {
    return place + 1 == kPeople.size() ? fault().action : outcome();
  }

  /// The agent fails at the person in this position.
  void failAt(NSUInteger place) {
    begin();
    openKnowingAll();
    agent.injectFault(kGrant, person(), place);
    invite();
    waitForList();
    agent.injectFaultAfterwards();
    expect(outcomeAt(place), place);
    agent.recover(kGrant, person());
    hasRecovered = true;
    openKnowingAll();
    invite();
    expect(Outcome::Succeeds, place);
  }
};

struct InviteLater : Invite {};

/// The agent fails at the look-up of a person whom the address book does not have.
struct InviteQuestion : Invite {
  InviteQuestion() {
    // Look-ups that earlier tests of the process have cached.
    [[delegate employeeContacts] removeAllObjects];
    [[delegate addressBookForShare] removeAllObjects];
  }

  static NSDictionary *grantsScript() {
    return @{kGrant : @{@"reply" : success(person())}};
  }

  /// Without a reply everyone counts as a colleague; the next call decides about their access.
  Outcome outcomeOfInvitation() const {
    if (outcome() == Outcome::Nobody) return Outcome::Refused;
    const std::set<ProcessFault> fatal = {ProcessFault::Absent, ProcessFault::KilledBefore,
                                          ProcessFault::DiesDuring};
    return fatal.contains(fault().processFault) ? Outcome::NoReply : Outcome::Succeeds;
  }

  void failAtQuestion(NSUInteger place) {
    begin(grantsScript());
    open();
    agent.injectFault(kUserInfo, colleague(), place);
    invite();
    waitForList();
    agent.injectFaultAfterwards();
    expect(outcomeOfInvitation(), place);
    NSString *const asked = [NSString stringWithUTF8String:kPeople[place].c_str()];
    EXPECT_EQ([[delegate employeeContacts] containsObject:asked], outcome() == Outcome::Succeeds);
    agent.recover(kUserInfo, colleague());
    hasRecovered = true;
    open();
    invite();
    expect(Outcome::Succeeds, place);
  }
};

struct InviteQuestionLater : InviteQuestion {};

}  // namespace

TEST_P(Invite, TellsWhatCameOfTheFirstAndWorksAgain) {
  failAt(0);
}

TEST_P(InviteLater, TellsWhatCameOfTheSecondAndWorksAgain) {
  failAt(1);
}

TEST_P(InviteLater, TellsWhatCameOfTheLastAndWorksAgain) {
  failAt(2);
}

TEST_P(InviteQuestion, OfTheOnlyOneIsNoObstacleWithoutAnAnswerAndWorksAgain) {
  invited = @"a@x.de";
  failAtQuestion(0);
}

TEST_P(InviteQuestionLater, OfTheSecondIsNoObstacleWithoutAnAnswerAndWorksAgain) {
  failAtQuestion(1);
}

TEST_P(InviteQuestionLater, OfTheLastIsNoObstacleWithoutAnAnswerAndWorksAgain) {
  failAtQuestion(2);
}

INSTANTIATE_TEST_SUITE_P(Row, InviteQuestion,
                         testing::ValuesIn(testedCellsOf(Column::InviteQuestion)), nameOfRow);
INSTANTIATE_TEST_SUITE_P(Row, InviteQuestionLater,
                         testing::ValuesIn(testedCellsOf(Column::InviteQuestionLater)), nameOfRow);
INSTANTIATE_TEST_SUITE_P(Row, Invite, testing::ValuesIn(testedCellsOf(Column::Invite)), nameOfRow);
INSTANTIATE_TEST_SUITE_P(Row, InviteLater, testing::ValuesIn(testedCellsOf(Column::InviteLater)),
                         nameOfRow);
