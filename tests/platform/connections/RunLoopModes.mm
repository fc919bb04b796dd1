#include <gtest/gtest.h>

#import <AppKit/AppKit.h>

// The repair of lost names listens in these modes by their values, in programs without AppKit too.
TEST(RunLoopModes, HaveTheValuesThatTheRepairOfLostNamesKnows) {
  EXPECT_TRUE([NSModalPanelRunLoopMode isEqualToString:@"NSModalPanelRunLoopMode"]);
  EXPECT_TRUE([NSEventTrackingRunLoopMode isEqualToString:@"NSEventTrackingRunLoopMode"]);
}
