#include "agent/ConnectionAttempt.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

/// A clock that only pauses and slow tries advance.
struct FakeTime {
  double seconds = 1000;
  std::vector<unsigned> pauses;
  std::vector<double> remaining;

  /// One attempt whose tries take `trySeconds` each and succeed from try `succeedsAt` on (1 is the
  /// first; 0: never).
  bool attempt(size_t succeedsAt, double trySeconds = 0) {
    return agent::attemptConnection([this] { return seconds; },
                                    [this](unsigned microseconds) {
                                      pauses.push_back(microseconds);
                                      seconds += microseconds / 1e6;
                                    },
                                    [&](double remainingSeconds) {
                                      remaining.push_back(remainingSeconds);
                                      seconds += trySeconds;
                                      return succeedsAt != 0 && remaining.size() >= succeedsAt;
                                    });
  }
};

}  // namespace

TEST(ConnectionAttempt, FindsAPresentAgentWithOneTryAndNoPause) {
  FakeTime time;
  EXPECT_TRUE(time.attempt(1));
  EXPECT_EQ(time.remaining.size(), 1u);
  EXPECT_TRUE(time.pauses.empty());
}

TEST(ConnectionAttempt, PausesATenthOfASecondAfterEachFailedTry) {
  FakeTime time;
  EXPECT_TRUE(time.attempt(4));
  EXPECT_EQ(time.pauses, (std::vector<unsigned>{100000, 100000, 100000}));
}

TEST(ConnectionAttempt, GivesUpAfterFifteenSecondsAndAtMostOnePause) {
  FakeTime time;
  EXPECT_FALSE(time.attempt(0));
  EXPECT_GE(time.seconds, 1015.0);
  EXPECT_LE(time.seconds, 1015.1 + 1e-6);
}

TEST(ConnectionAttempt, MakesAboutAHundredAndFiftyTriesWhenNobodyAnswers) {
  FakeTime time;
  time.attempt(0);
  EXPECT_GE(time.remaining.size(), 150u);
  EXPECT_LE(time.remaining.size(), 151u);
}

TEST(ConnectionAttempt, StopsWhenTheDeadlineIsReachedExactly) {
  FakeTime time;
  time.seconds = 0;
  // 14.9 s and a pause of 0.1 s end on the deadline itself, which is not earlier than itself.
  const double trySeconds = agent::kConnectionDeadlineSeconds - 0.1;
  EXPECT_FALSE(time.attempt(0, trySeconds));
  EXPECT_EQ(time.remaining.size(), 1u);
}

TEST(ConnectionAttempt, GoesOnWhileAnyTimeRemains) {
  FakeTime time;
  time.seconds = 0;
  EXPECT_FALSE(time.attempt(0, 14.8));
  EXPECT_EQ(time.remaining.size(), 2u);
}

TEST(ConnectionAttempt, PausesOnceMoreAfterATryThatOutlastedTheDeadline) {
  FakeTime time;
  EXPECT_FALSE(time.attempt(0, 20));
  EXPECT_EQ(time.remaining.size(), 1u);
  EXPECT_EQ(time.pauses.size(), 1u);
}

TEST(ConnectionAttempt, FindsAnAgentThatAppearsAfterThreeSeconds) {
  FakeTime time;
  EXPECT_TRUE(time.attempt(31));
  EXPECT_NEAR(time.seconds, 1003.0, 1e-6);
}

TEST(ConnectionAttempt, TellsEachTryHowMuchTimeIsLeft) {
  FakeTime time;
  time.attempt(3, 1.0);
  ASSERT_EQ(time.remaining.size(), 3u);
  EXPECT_NEAR(time.remaining[0], 15.0, 1e-6);
  EXPECT_NEAR(time.remaining[1], 13.9, 1e-6);
  EXPECT_NEAR(time.remaining[2], 12.8, 1e-6);
}
