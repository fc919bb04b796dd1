// Failures while a link is mailed, which must not lose what was entered.

#import "tests/e2e/ScreenTab.h"
#import "tests/e2e/SendTab.h"
#import "tests/e2e/WindowTest.h"
#import "tests/support/Arguments.h"
#include "tests/support/HeldReply.h"

namespace {

NSString *const kSendFile = @"sendFile:::::::::";

struct SendMailFaults : WindowTest, ScreenTab {
  /// What the agent waits for in the call that is scripted with hangingEntry.
  const HeldReply hold;

  NSDictionary *hangingEntry(id reply) const { return hold.entry(@{@"reply" : reply}); }
  void resumeAgent() const { hold.release(); }

  /// Opens the window on the tab and fills in all fields.
  bool openAndFillIn() {
    const SendCall call = {.tab = 0};
    if (!open(call)) return false;
    window = onlyWindow(call.name);
    if (window.number.empty()) return false;
    // The last address is only half entered: nothing ends it.
    typeText("ann@example.org,bo@example.org");
    click(kSendSubject);
    pressKeys({"ctrl+a"});
    typeText("Q&A");
    click(kSendMessage);
    typeText("two\nlines");
    toggle(kSendCopyMe);
    toggle(kSendNotify);
    choose(kSendDownloads, 0, 1);
    return true;
  }

  /// The agent was asked for what openAndFillIn entered, and for nothing else.
  bool enteredWasSent() const {
    return [argumentsOf(kSendFile) isEqual:@[
      @"id-1", @1, @0, @"1", @"ann@example.org,bo@example.org", @"Q%26A", @"two%0Alines", @1, @1
    ]];
  }

  /// Sends the unchanged content of the window to a working agent.
  void expectThatAllIsStillThere() {
    agent->answer(kSendFile, success(@"sent"));
    ASSERT_TRUE(dismissAlert());
    const NSUInteger before = callsOf(kSendFile);
    ASSERT_TRUE(clickAndSeeSheet(kSendButton));
    EXPECT_EQ(callsOf(kSendFile), before + 1);
    EXPECT_TRUE(enteredWasSent()) << text(argumentsOf(kSendFile));
    EXPECT_TRUE(waitForWindows(0));
  }
};

}  // namespace

TEST_F(SendMailFaults, ARefusalLeavesEverythingThatWasEntered) {
  agent->answer(kSendFile, refusal(7, @"quota"));
  ASSERT_TRUE(openAndFillIn());
  ASSERT_TRUE(clickAndSeeSheet(kSendButton));
  EXPECT_EQ(linesInLog("Error sending:quota"), 1);
  expectThatAllIsStillThere();
}

TEST_F(SendMailFaults, NoReplyLeavesEverythingThatWasEntered) {
  agent->setScript(@{kSendFile : @{@"nil" : @1}});
  ASSERT_TRUE(openAndFillIn());
  ASSERT_TRUE(clickAndSeeSheet(kSendButton));
  EXPECT_EQ(linesInLog(kNoReplyLine), 1);
  expectThatAllIsStillThere();
}

TEST_F(SendMailFaults, AnAgentThatIsKilledWhileSendingLeavesEverythingThatWasEntered) {
  agent->setScript(@{kSendFile : hangingEntry(success(@"never"))});
  ASSERT_TRUE(openAndFillIn());
  click(kSendButton);
  ASSERT_TRUE(waitFor([&] { return callsOf(kSendFile) == 1; })) << output();
  endAgent();
  ASSERT_TRUE(waitForWindows(2));
  EXPECT_EQ(linesInLog(kNoReplyLine), 1);
  startAgent();
  expectThatAllIsStillThere();
}

TEST_F(SendMailFaults, WithoutAnAgentEverythingThatWasEnteredStays) {
  ASSERT_TRUE(openAndFillIn());
  endAgent();
  ASSERT_TRUE(clickAndSeeSheet(kSendButton));
  startAgent();
  expectThatAllIsStillThere();
}

TEST_F(SendMailFaults, WhileTheAgentHangsTheIndicatorIsOnTheScreen) {
  agent->setScript(@{kSendFile : hangingEntry(refusal(1, @"no"))});
  ASSERT_TRUE(openAndFillIn());
  const std::string idle = settledPicture(indicatorOf(window));
  ASSERT_NE(idle, "");
  click(kSendButton);
  EXPECT_TRUE(waitFor([&] { return picture(indicatorOf(window)) != idle; }));
  resumeAgent();
  EXPECT_TRUE(waitForWindows(2));
  EXPECT_TRUE(waitFor([&] { return picture(indicatorOf(window)) == idle; }));
}

/// The connection attempt alone takes 15 seconds.
TEST_F(SendMailFaults, WithoutAnAgentTheIndicatorIsOnTheScreenWhileOneIsLookedFor) {
  ASSERT_TRUE(openAndFillIn());
  const std::string idle = settledPicture(indicatorOf(window));
  ASSERT_NE(idle, "");
  endAgent();
  click(kSendButton);
  EXPECT_TRUE(waitFor([&] { return picture(indicatorOf(window)) != idle; }));
  EXPECT_EQ(windowsOnScreen().size(), 1u) << "no alert yet";
  EXPECT_TRUE(waitForWindows(2));
  startAgent();
}

TEST_F(SendMailFaults, ASecondClickWhileTheAgentHangsSendsNothingTwice) {
  agent->setScript(@{kSendFile : hangingEntry(success(@"sent"))});
  ASSERT_TRUE(openAndFillIn());
  click(kSendButton);
  ASSERT_TRUE(waitFor([&] { return callsOf(kSendFile) == 1; }));
  click(kSendButton);
  pressKeys({"Return"});
  resumeAgent();
  ASSERT_TRUE(waitForWindows(2));
  EXPECT_TRUE(waitForWindows(0));
  EXPECT_EQ(callsOf(kSendFile), 1u);
  EXPECT_TRUE(serves());
}

TEST_F(SendMailFaults, ABadAddressIsNamedAndCanBePutRight) {
  agent->answer(kSendFile, success(@"sent"));
  ASSERT_TRUE(open(SendCall{.tab = 0}));
  window = onlyWindow("Quarterly figures.csv");
  typeText("ann@example.org,bad");
  ASSERT_TRUE(clickAndSeeSheet(kSendButton));
  EXPECT_EQ(callsOf(kSendFile), 0u);
  ASSERT_TRUE(dismissAlert());
  click(kSendRecipients);
  pressKeys({"End", "BackSpace", "BackSpace", "BackSpace"});
  typeText("bo@example.org");
  ASSERT_TRUE(clickAndSeeSheet(kSendButton));
  ASSERT_EQ(callsOf(kSendFile), 1u);
  EXPECT_EQ(text([argumentsOf(kSendFile) objectAtIndex:send_operation::kRecipients]),
            "ann@example.org,bo@example.org");
}
