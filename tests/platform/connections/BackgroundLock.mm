#import "platform/gnustep/connections/NSConnection+BackgroundLock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <utility>
#include <vector>

#include "tests/support/Pump.h"

/// Work on a thread of its own.
@interface BackgroundThread : NSObject {
 @public
  std::function<void()> work;
  std::atomic<bool> isOver;
}
@end

@implementation BackgroundThread

- (void)run {
  @autoreleasepool {
    work();
  }
  isOver = true;
}

@end

namespace {

/// Longer than a thread holds the lock, even on a busy machine.
constexpr NSTimeInterval kLong = 60;
constexpr NSTimeInterval kShort = 0.1;

BackgroundThread *startThread(std::function<void()> work) {
  BackgroundThread *const thread = [[[BackgroundThread alloc] init] autorelease];
  thread->work = std::move(work);
  [thread performSelectorInBackground:@selector(run) withObject:nil];
  return thread;
}

/// A thread that holds the lock until it is told to give it back.
struct BackgroundLock : testing::Test {
  std::atomic<bool> hasLock = false;
  std::atomic<bool> mayUnlock = false;
  std::atomic<bool> unlocks = false;
  BackgroundThread *holder = startThread([this] {
    hasLock = [NSConnection lockForBackgroundThreadWithTimeout:kLong];
    waitFor([this] { return mayUnlock.load(); });
    unlocks = true;
    [NSConnection unlockForBackgroundThread];
  });

  BackgroundLock() {
    EXPECT_TRUE(waitFor([this] { return hasLock.load(); }));
  }
  ~BackgroundLock() override { unlock(); }

  void unlock() {
    mayUnlock = true;
    EXPECT_TRUE(pumpUntil([this] { return holder->isOver.load(); }));
  }
};

/// Locks on a thread of its own with that time-out, in seconds, and unlocks; answers whether it got
/// the lock.
bool locksWithin(NSTimeInterval limit) {
  std::atomic<bool> hasLocked = false;
  BackgroundThread *const thread = startThread([&hasLocked, limit] {
    hasLocked = [NSConnection lockForBackgroundThreadWithTimeout:limit];
    if (hasLocked) [NSConnection unlockForBackgroundThread];
  });
  EXPECT_TRUE(pumpUntil([&] { return thread->isOver.load(); }));
  return hasLocked;
}

}  // namespace

TEST_F(BackgroundLock, AThreadThatWaitsLongerThanItsTimeoutDoesNotGetIt) {
  EXPECT_FALSE(locksWithin(kShort));
}

TEST_F(BackgroundLock, AfterATimeoutTheNextThreadGetsIt) {
  EXPECT_FALSE(locksWithin(kShort));
  unlock();
  EXPECT_TRUE(locksWithin(kShort));
}

TEST_F(BackgroundLock, TheTimeThatUnlockingWaitsForTheMainThreadDoesNotCount) {
  constexpr NSTimeInterval kLimit = 1;
  mayUnlock = true;
  ASSERT_TRUE(waitFor([this] { return unlocks.load(); }));
  std::atomic<bool> hasLocked = false;
  BackgroundThread *const waiter = startThread([&hasLocked] {
    hasLocked = [NSConnection lockForBackgroundThreadWithTimeout:kLimit];
    if (hasLocked) [NSConnection unlockForBackgroundThread];
  });
  // The main thread is busy and does not run its run loop.
  const double busyUntil = detail::secondsNow() + 1.5 * kLimit;
  while (detail::secondsNow() < busyUntil) {
    ASSERT_FALSE(waiter->isOver);
    detail::pausePolling();
  }
  EXPECT_TRUE(pumpUntil([&] { return waiter->isOver.load(); }));
  EXPECT_TRUE(hasLocked);
}

TEST(BackgroundLockOfManyThreads, EachThreadGetsIt) {
  std::atomic<int> locks = 0;
  std::vector<BackgroundThread *> threads;
  for (int i = 0; i < 12; ++i) {
    threads.push_back(startThread([&locks] {
      if (![NSConnection lockForBackgroundThreadWithTimeout:kLong]) return;
      [NSConnection unlockForBackgroundThread];
      ++locks;
    }));
  }
  EXPECT_TRUE(pumpUntil([&] {
    return std::all_of(threads.begin(), threads.end(),
                       [](BackgroundThread *thread) { return thread->isOver.load(); });
  }));
  EXPECT_EQ(locks, 12);
}
