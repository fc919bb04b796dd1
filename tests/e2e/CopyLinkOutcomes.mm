#include <cmath>
#include <cstdio>
#include <optional>

#import "tests/e2e/CopyLinkTabOnScreen.h"
#include "tests/support/HeldReply.h"

namespace {

constexpr double kSecondsOfTheSuccess = 3.0;
/// The timer's and the log's clock are not the same, and the log's has milliseconds.
constexpr double kClockTolerance = 0.1;
/// On a machine that is busy with something else.
constexpr double kLatestSeconds = 15;

/// The time of day at which the application logged the line, in seconds; nothing when it did not.
std::optional<double> timeOf(const std::string &output, const std::string &line) {
  // "2026-11-21 04:37:24.013 Name[1:1] text"
  const auto end = output.find("] " + line + "\n");
  if (end == std::string::npos) return std::nullopt;
  const auto newline = output.rfind('\n', end);
  const auto start = newline == std::string::npos ? 0 : newline + 1;
  int hour = 0;
  int minute = 0;
  double second = 0;
  if (std::sscanf(output.c_str() + start, "%*s %d:%d:%lf", &hour, &minute, &second) != 3) {
    return std::nullopt;
  }
  return hour * 3600 + minute * 60 + second;
}

/// From the application's copying of the link to its closing of the window, in seconds; below zero
/// when it did not do both.
double secondsOfSuccess(const std::string &output) {
  constexpr double kSecondsOfADay = 86400;
  const auto copied = timeOf(output, "copy success = 1");
  const auto closed = timeOf(output, "window closed");
  if (!copied || !closed) return -1;
  return std::fmod(*closed - *copied + kSecondsOfADay, kSecondsOfADay);
}

struct CopyLinkOutcomes : CopyLinkTab {
  /// What the agent waits for in the call that is scripted with hangingEntry.
  const HeldReply hold;

  NSDictionary *hangingEntry(id reply) const { return hold.entry(@{@"reply" : reply}); }
  void resumeAgent() const { hold.release(); }

  /// Presses Return and waits until the agent is asked.
  bool pressReturnAndAskAgent() const {
    const NSUInteger before = callsOf(kFileLink);
    pressKeys({"Return"});
    return waitFor([&] { return callsOf(kFileLink) == before + 1; });
  }

  bool linkIsReadable(const std::string &link) const {
    return waitFor([&] { return clipboardReadByXclip() == link; });
  }
};

}  // namespace

TEST_F(CopyLinkOutcomes, ASuccessShowsItselfForThreeSecondsAndClosesTheWindow) {
  agent->answer(kFileLink, success(@"https://x/y"));
  ASSERT_TRUE(openTab());
  ASSERT_TRUE(pressReturnAndSeeSheet());
  EXPECT_TRUE(linkIsReadable("https://x/y"));
  EXPECT_TRUE(waitForWindows(0));
  const double seconds = secondsOfSuccess(output());
  EXPECT_GE(seconds, kSecondsOfTheSuccess - kClockTolerance);
  EXPECT_LE(seconds, kLatestSeconds);
  EXPECT_EQ(clipboardReadByXclip(), "https://x/y");
}

TEST_F(CopyLinkOutcomes, WhileASuccessShowsItselfTheNextCallIsServed) {
  agent->answer(kFileLink, success(@"https://x/y"));
  ASSERT_TRUE(openTab());
  ASSERT_TRUE(pressReturnAndSeeSheet());
  ASSERT_TRUE(openTab({.name = "next.txt"}));
  EXPECT_EQ(linesInLog("window closed"), 1);
  // The timer of the first window's success does not affect the second.
  ASSERT_TRUE(pressReturnAndSeeSheet());
  EXPECT_TRUE(waitForWindows(0));
  EXPECT_EQ(linesInLog("window closed"), 2);
  EXPECT_EQ(linesInLog("copy success = 1"), 2);
}

TEST_F(CopyLinkOutcomes, ARefusalLeavesTheWindowWithItsOptionsAndALaterTrySucceeds) {
  agent->answer(kFileLink, refusal(1, @"quota"));
  ASSERT_TRUE(openTab());
  toggle(kNotify);
  chooseDownloads(1);
  ASSERT_TRUE(pressReturnAndSeeSheet());
  EXPECT_EQ(clipboardReadByXclip(), "");
  ASSERT_TRUE(dismissAlert());
  agent->answer(kFileLink, success(@"https://x/later"));
  ASSERT_TRUE(pressReturnAndSeeSheet());
  EXPECT_TRUE(linkIsReadable("https://x/later"));
  EXPECT_TRUE(([argumentsOf(kFileLink) isEqual:@[ @"id-1", @1, @0, @"1", @1 ]]));
}

TEST_F(CopyLinkOutcomes, NoReplyLeavesTheWindowAndALaterTrySucceeds) {
  agent->setScript(@{kFileLink : @[ @{@"nil" : @1}, @{@"reply" : success(@"https://x/2")} ]});
  ASSERT_TRUE(openTab());
  ASSERT_TRUE(pressReturnAndSeeSheet());
  ASSERT_TRUE(dismissAlert());
  ASSERT_TRUE(pressReturnAndSeeSheet());
  EXPECT_TRUE(linkIsReadable("https://x/2"));
}

TEST_F(CopyLinkOutcomes, WhileAnAlertIsOnTheWindowTheNextCallIsServed) {
  agent->answer(kFileLink, refusal(1, @"quota"));
  ASSERT_TRUE(openTab());
  ASSERT_TRUE(pressReturnAndSeeSheet());
  EXPECT_TRUE(serves());
  EXPECT_TRUE(waitForWindows(0));
}

TEST_F(CopyLinkOutcomes, AnAgentKilledDuringTheCallLeavesTheWindowAndItsSuccessorIsAsked) {
  agent->setScript(@{kFileLink : hangingEntry(success(@"never"))});
  ASSERT_TRUE(openTab());
  ASSERT_TRUE(pressReturnAndAskAgent());
  endAgent();
  ASSERT_TRUE(waitForWindows(2));
  startAgent();
  agent->answer(kFileLink, success(@"https://x/successor"));
  ASSERT_TRUE(dismissAlert());
  ASSERT_TRUE(pressReturnAndSeeSheet());
  EXPECT_TRUE(linkIsReadable("https://x/successor"));
}

TEST_F(CopyLinkOutcomes, WithoutAnAgentTheWindowStaysAndALaterTrySucceeds) {
  ASSERT_TRUE(openTab());
  toggle(kAskForMail);
  endAgent();
  ASSERT_TRUE(pressReturnAndSeeSheet());
  EXPECT_EQ(linesInLog("window closed"), 0);
  startAgent();
  agent->answer(kFileLink, success(@"https://x/back"));
  ASSERT_TRUE(dismissAlert());
  ASSERT_TRUE(pressReturnAndSeeSheet());
  EXPECT_TRUE(linkIsReadable("https://x/back"));
  EXPECT_TRUE(([argumentsOf(kFileLink) isEqual:@[ @"id-1", @0, @1, @"-1", @1 ]]));
}

TEST_F(CopyLinkOutcomes, WhileTheAgentHangsTheIndicatorIsOnTheScreen) {
  agent->setScript(@{kFileLink : hangingEntry(refusal(1, @"no"))});
  ASSERT_TRUE(openTab());
  const std::string idle = settledPicture(indicatorOf(window));
  ASSERT_NE(idle, "");
  ASSERT_TRUE(pressReturnAndAskAgent());
  EXPECT_TRUE(waitFor([&] { return picture(indicatorOf(window)) != idle; }));
  resumeAgent();
  EXPECT_TRUE(waitFor([&] { return picture(indicatorOf(window)) == idle; }));
}

TEST_F(CopyLinkOutcomes, WhileTheAgentHangsASecondClientWaitsAndIsServedAfterwards) {
  agent->setScript(@{kFileLink : hangingEntry(success(@"https://x/y"))});
  ASSERT_TRUE(openTab());
  ASSERT_TRUE(pressReturnAndAskAgent());
  ChildProcess second = client(ShareCall());
  ASSERT_TRUE(second.waitForOutput("calling"));
  // Nothing must happen, so there is no condition to wait for: look often, for many times as long
  // as a served call takes.
  for (int look = 0; look < 300; ++look) {
    ASSERT_FALSE(second.hasEnded());
    detail::pausePolling();
  }
  EXPECT_EQ(windowsOnScreen().size(), 1u);
  resumeAgent();
  EXPECT_EQ(second.waitForEnd(), 0) << second.output();
  EXPECT_NE(onlyWindow("Share Folder").number, "");
  EXPECT_TRUE(linkIsReadable("https://x/y"));
}

TEST_F(CopyLinkOutcomes, AKeyPressedWhileTheAgentHangsDoesNotDismissTheAlertThatFollows) {
  agent->setScript(@{kFileLink : hangingEntry(refusal(1, @"no"))});
  ASSERT_TRUE(openTab());
  ASSERT_TRUE(pressReturnAndAskAgent());
  pressKeys({"Return"});
  resumeAgent();
  ASSERT_TRUE(waitForWindows(2));
  // Nothing must happen: look often, for many times as long as a key takes.
  for (int look = 0; look < 50; ++look) ASSERT_EQ(windowsOnScreen().size(), 2u) << output();
  EXPECT_TRUE(dismissAlert());
  EXPECT_EQ(callsOf(kFileLink), 1u);
}
