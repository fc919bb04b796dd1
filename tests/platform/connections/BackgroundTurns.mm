#import "platform/gnustep/connections/NSConnection+BackgroundLock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <utility>
#include <vector>

#include "tests/support/Pump.h"

/// Work on a thread of its own.
@interface TurnThread : NSObject {
 @public
  std::function<void()> work;
  std::atomic<bool> isOver;
}
@end

@implementation TurnThread

- (void)run {
  @autoreleasepool {
    work();
  }
  isOver = true;
}

@end

namespace {

/// Longer than a thread takes to hand its turn on, even on a busy machine.
constexpr NSTimeInterval kLong = 60;
constexpr NSTimeInterval kShort = 0.1;

TurnThread *startThread(std::function<void()> work) {
  TurnThread *const thread = [[[TurnThread alloc] init] autorelease];
  thread->work = std::move(work);
  [thread performSelectorInBackground:@selector(run) withObject:nil];
  return thread;
}

/// A thread that has the turn until it is told to end it.
struct BackgroundTurns : testing::Test {
  std::atomic<bool> hasTurn = false;
  std::atomic<bool> mayEnd = false;
  std::atomic<bool> ends = false;
  TurnThread *holder = startThread([this] {
    hasTurn = [NSConnection beginTurnOfThreadWithin:kLong];
    waitFor([this] { return mayEnd.load(); });
    ends = true;
    [NSConnection endTurnOfThread];
  });

  BackgroundTurns() {
    EXPECT_TRUE(waitFor([this] { return hasTurn.load(); }));
  }
  ~BackgroundTurns() override { endTurn(); }

  void endTurn() {
    mayEnd = true;
    EXPECT_TRUE(pumpUntil([this] { return holder->isOver.load(); }));
  }
};

/// Takes the turn within that time and ends it; answers whether it has had it.
bool hasATurn(NSTimeInterval limit) {
  std::atomic<bool> had = false;
  TurnThread *const thread = startThread([&had, limit] {
    had = [NSConnection beginTurnOfThreadWithin:limit];
    if (had) [NSConnection endTurnOfThread];
  });
  EXPECT_TRUE(pumpUntil([&] { return thread->isOver.load(); }));
  return had;
}

}  // namespace

TEST_F(BackgroundTurns, AThreadBehindOneThatAsksTooLongGoesWithoutItsTurn) {
  EXPECT_FALSE(hasATurn(kShort));
}

TEST_F(BackgroundTurns, AfterAThreadHasGoneWithoutItsTurnTheNextOneHasIt) {
  EXPECT_FALSE(hasATurn(kShort));
  endTurn();
  EXPECT_TRUE(hasATurn(kShort));
}

TEST_F(BackgroundTurns, TheTimeThatTheMainThreadTakesToEndATurnDoesNotCount) {
  constexpr NSTimeInterval kLimit = 1;
  mayEnd = true;
  ASSERT_TRUE(waitFor([this] { return ends.load(); }));
  std::atomic<bool> had = false;
  TurnThread *const waiter = startThread([&had] {
    had = [NSConnection beginTurnOfThreadWithin:kLimit];
    if (had) [NSConnection endTurnOfThread];
  });
  // The main thread is at work and runs no mode.
  const double busyUntil = detail::secondsNow() + 1.5 * kLimit;
  while (detail::secondsNow() < busyUntil) {
    ASSERT_FALSE(waiter->isOver);
    detail::pausePolling();
  }
  EXPECT_TRUE(pumpUntil([&] { return waiter->isOver.load(); }));
  EXPECT_TRUE(had);
}

TEST(BackgroundTurnsOfMany, AllThreadsHaveTheirTurns) {
  std::atomic<int> turns = 0;
  std::vector<TurnThread *> threads;
  for (int i = 0; i < 12; ++i) {
    threads.push_back(startThread([&turns] {
      if (![NSConnection beginTurnOfThreadWithin:kLong]) return;
      [NSConnection endTurnOfThread];
      ++turns;
    }));
  }
  EXPECT_TRUE(pumpUntil([&] {
    return std::all_of(threads.begin(), threads.end(),
                       [](TurnThread *thread) { return thread->isOver.load(); });
  }));
  EXPECT_EQ(turns, 12);
}
