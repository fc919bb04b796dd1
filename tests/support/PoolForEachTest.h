#pragma once

#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

/// Gives each test an autorelease pool of its own, as each event has one in an application: windows
/// and what the display server keeps for them would otherwise live until the program ends.
class PoolForEachTest : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo &) override { pool_ = [[NSAutoreleasePool alloc] init]; }
  void OnTestEnd(const testing::TestInfo &) override { [pool_ drain]; }

  NSAutoreleasePool *pool_ = nil;
};

/// To be called once, before the tests run.
inline void giveEachTestAPool() {
  // Owned by the list.
  testing::UnitTest::GetInstance()->listeners().Append(new PoolForEachTest);
}
