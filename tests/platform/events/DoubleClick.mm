#include <gtest/gtest.h>

#import <AppKit/AppKit.h>

namespace {

/// The interval with a default, which is removed afterwards.
NSTimeInterval intervalWith(NSInteger milliseconds) {
  NSUserDefaults *const defaults = [NSUserDefaults standardUserDefaults];
  [defaults setInteger:milliseconds forKey:@"GSDoubleClickTime"];
  const NSTimeInterval interval = [NSEvent doubleClickInterval];
  [defaults removeObjectForKey:@"GSDoubleClickTime"];
  return interval;
}

}  // namespace

TEST(DoubleClick, TakesThreeTenthsOfASecondUnlessTheUserSaysOtherwise) {
  EXPECT_DOUBLE_EQ([NSEvent doubleClickInterval], 0.3);
}

TEST(DoubleClick, TakesWhatTheUserHasSet) {
  EXPECT_DOUBLE_EQ(intervalWith(800), 0.8);
}

TEST(DoubleClick, NeverTakesLessThanThePlatformCountsClicksBy) {
  EXPECT_DOUBLE_EQ(intervalWith(100), 0.3);
  EXPECT_DOUBLE_EQ(intervalWith(-5), 0.3);
}
