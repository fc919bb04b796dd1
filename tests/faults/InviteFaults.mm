// What a user gets whose agent fails at the first, the second or the last of three people who are
// invited.
#import "send/TextFormat.h"
#import "tests/faults/EndedThreads.h"
#import "tests/faults/FaultTest.h"
#include "tests/ui/Windows.h"

namespace {

NSString *const kGrant = @"grantAccess:::::::::";
NSString *const kInvited = @"a@x.de,b@x.de,c@x.de";
const std::vector<std::string> kPeople = {"a@x.de", "b@x.de", "c@x.de"};

NSDictionary *person() {
  return @{@"userfname" : @"anna", @"userlname" : @"meier", @"useremail" : @"a@x.de"};
}

struct Invite : FaultTest<WindowsWithoutAgent> {
  BrisvaleTabController *controller = nil;

  NSWindow *window() { return [controller window]; }
  NSTokenField *recipients() {
    for (NSView *view in [[[[controller shareFolderTab] tabViewItemAtIndex:1] view] subviews]) {
      if ([view isKindOfClass:[NSTokenField class]]) return static_cast<NSTokenField *>(view);
    }
    return nil;
  }

  void open() {
    EndedThreads *const threads = [[EndedThreads alloc] init];
    controller = openShare(1, @"folder-1");
    // The list is fetched meanwhile, from the same agent.
    EXPECT_TRUE(handleEventsUntil([&] { return threads->count > 0; }));
    [threads release];
    [recipients() setStringValue:kInvited];
    mark();
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
    std::string left = text(kInvited);
    switch (outcome) {
      case Outcome::Succeeds:
        EXPECT_EQ(logged(), Lines{});
        EXPECT_TRUE(sheetShows(shown(@"folderSharedSuccessMessageTextKey")));
        left = "";
        break;
      case Outcome::Refused:
        EXPECT_EQ(logged(), Lines{});
        EXPECT_TRUE(sheetShows(shown(@"invalidEmployeeErrorMessageTextKey")));
        EXPECT_TRUE(sheetShows(
            text(formatted(localizedText(@"invalidEmployeeErrorInformativeTextFormatKey"),
                           [NSString stringWithUTF8String:kPeople[place].c_str()]))));
        break;
      default:
        EXPECT_EQ(logged(), Lines{kNoReplyLine});
        EXPECT_TRUE(
            sheetShows(text(formatted(localizedText(@"cannotConnectToBrisvaleMessageTextKey")))));
    }
    EXPECT_TRUE([window() isVisible]);
    EXPECT_FALSE([delegate contextMenuFlag]);
    EXPECT_EQ(text(clipboardText()), "former contents");
    EXPECT_EQ(text([recipients() stringValue]), left);
  }

  /// The agent fails at the person in this place.
  void failAt(NSUInteger place) {
    begin();
    open();
    agent.strike(kGrant, person(), place);
    invite();
    agent.strikeAfterwards();
    expect(fault().action, place);
    agent.recover(kGrant, person());
    open();
    invite();
    expect(Outcome::Succeeds, place);
  }
};

struct InviteLater : Invite {};

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

INSTANTIATE_TEST_SUITE_P(Row, Invite, testing::ValuesIn(allFaults()), nameOfRow);
INSTANTIATE_TEST_SUITE_P(Row, InviteLater, testing::ValuesIn(faultsOfACall()), nameOfRow);
