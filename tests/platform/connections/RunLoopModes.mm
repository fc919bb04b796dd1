#include <gtest/gtest.h>

#import <AppKit/AppKit.h>

// RegisteredNames uses these modes by value, also in programs without AppKit.
TEST(RunLoopModes, HaveTheValuesThatTheRepairOfLostNamesKnows) {
  EXPECT_TRUE([NSModalPanelRunLoopMode isEqualToString:@"NSModalPanelRunLoopMode"]);
  EXPECT_TRUE([NSEventTrackingRunLoopMode isEqualToString:@"NSEventTrackingRunLoopMode"]);
}
