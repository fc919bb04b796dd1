#pragma once

#import <Foundation/Foundation.h>

#include "tests/support/ChildProcess.h"

/// Runs the current run loop in its default mode until `condition` holds, at most for
/// kPatienceSeconds; answers whether it came to hold.
template <class Condition>
bool pumpUntil(Condition condition) {
  return waitFor([&] {
    if (condition()) return true;
    @autoreleasepool {
      NSDate *const soon = [NSDate dateWithTimeIntervalSinceNow:0.01];
      [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:soon];
    }
    return false;
  });
}
