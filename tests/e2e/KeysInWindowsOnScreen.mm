// The keys of a keyboard that lead through the windows and out of the messages in them.

#import "tests/e2e/SendTab.h"
#import "tests/e2e/ShareTab.h"
#import "tests/e2e/WindowTest.h"
#import "tests/support/Arguments.h"

namespace {

NSString *const kSendFile = @"sendFile:::::::::";
NSString *const kGrant = @"grantAccess:::::::::";
constexpr NSUInteger kMessageArgument = 6;

struct KeysInWindows : WindowTest, ShareTab {
  bool openSend(int tab) {
    if (!open(SendCall{.tab = tab})) return false;
    window = onlyWindow(SendCall().name);
    return !window.number.empty();
  }

  bool openShare(int tab) {
    if (!open(ShareCall{.tab = tab})) return false;
    window = onlyWindow("Share Folder");
    return !window.number.empty();
  }
};

}  // namespace

TEST_F(KeysInWindows, TabLeadsIntoTheMessageThroughItAndBackAndControlTabWritesATab) {
  agent->setScript(@{kSendFile : @{@"reply" : success(@1)}});
  ASSERT_TRUE(openSend(0));
  typeText("a@example.org,");
  pressKeys({"Tab", "Tab"});
  typeText("one");
  pressKeys({"Tab", "Tab", "shift+Tab", "shift+Tab"});
  typeText("two");
  pressKeys({"ctrl+Tab"});
  click(kSendButton);
  ASSERT_TRUE(waitFor([&] { return callsOf(kSendFile) == 1; }));
  EXPECT_EQ(text([argumentsOf(kSendFile) objectAtIndex:kMessageArgument]), "onetwo%09");
}

TEST_F(KeysInWindows, EscapeInTheMessageOfAMailClosesTheWindow) {
  ASSERT_TRUE(openSend(0));
  click(kSendMessage);
  typeText("half a message");
  pressKeys({"Escape"});
  EXPECT_TRUE(waitForWindows(0));
  EXPECT_EQ(linesInLog("window closed"), 1);
  EXPECT_TRUE(serves());
}

TEST_F(KeysInWindows, EscapeInTheMessageOfAnInvitationClosesTheWindow) {
  ASSERT_TRUE(openShare(1));
  click(kInviteMessage);
  typeText("half a message");
  pressKeys({"Escape"});
  EXPECT_TRUE(waitForWindows(0));
  EXPECT_EQ(linesInLog("window closed"), 1);
  EXPECT_TRUE(serves());
}

TEST_F(KeysInWindows, EscapeInAListOfColleaguesClosesTheListFirst) {
  ASSERT_TRUE(openShare(1));
  typeText("user");
  ASSERT_TRUE(waitForWindows(2));  // the list is one
  pressKeys({"Escape"});
  ASSERT_TRUE(waitForWindows(1));
  EXPECT_EQ(linesInLog("window closed"), 0);
  pressKeys({"Escape"});
  EXPECT_TRUE(waitForWindows(0));
}

TEST_F(KeysInWindows, TheRowOfTabsIsInFrontOfTheFirstControl) {
  ASSERT_TRUE(openSend(1));
  const std::string before = settledPicture(buttonsOf(window));
  pressKeys({"shift+Tab", "Left"});
  EXPECT_TRUE(waitFor([&] { return picture(buttonsOf(window)) != before; }));
}

TEST_F(KeysInWindows, TheLevelOfAPersonWhoIsOutOfSightIsChangedByKeyboardAlone) {
  agent->setScript(
      @{@"getAccess::" : @{@"reply" : success(readers(20))},
        kGrant : @{@"reply" : success(@1)}});
  ASSERT_TRUE(openShare(0));
  ASSERT_TRUE(seesAnyRow());
  // From Done to the button and the level of the last row.
  pressKeys({"shift+Tab", "shift+Tab", "space", "Home", "Return"});
  ASSERT_TRUE(waitFor([&] { return callsOf(kGrant) == 1; }));
  EXPECT_EQ(text([argumentsOf(kGrant) objectAtIndex:grant_operation::kUserEmail]),
            "reader19@example.org");
}
