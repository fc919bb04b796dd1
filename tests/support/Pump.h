#pragma once

#import <Foundation/Foundation.h>

#include "tests/support/ChildProcess.h"

/// Runs the current run loop in its default mode until `condition` holds, at most for
/// kWaitTimeoutSeconds; returns whether it holds.
template <class Condition>
bool pumpUntil(Condition condition) {
  const double start = detail::secondsNow();
  return waitFor([&] {
    if (condition()) return true;
    @autoreleasepool {
      NSDate *const soon =
          [NSDate dateWithTimeIntervalSinceNow:detail::secondsUntilNextLook(start)];
      [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:soon];
    }
    return false;
  });
}
