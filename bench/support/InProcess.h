#pragma once

#import <AppKit/AppKit.h>

#include <stdexcept>

#include "tests/support/ChildProcess.h"

// The application inside the benchmark's own process, with an event loop that the benchmark drives
// itself. Main thread only.

/// The application's own launch, with its own main interface file.
void launchInProcess();

/// The visible window of the application, nil for none.
NSWindow *openWindow();

/// Of the monotonic clock.
double millisecondsNow();

/// Takes an event out of the queue, waiting until the date, and dispatches it. Returns it, nil when
/// none came.
NSEvent *handleEvent(NSDate *until);

/// Handles events until the condition holds; throws std::runtime_error when that takes more than a
/// minute.
template <class Condition>
void handleEventsUntil(Condition condition) {
  /// Short, so that the condition is checked soon.
  constexpr NSTimeInterval kLookSeconds = 0.0005;
  const double end = detail::secondsNow() + kWaitTimeoutSeconds;
  while (!condition()) {
    if (detail::secondsNow() > end) throw std::runtime_error("nothing happens");
    @autoreleasepool {
      handleEvent([NSDate dateWithTimeIntervalSinceNow:kLookSeconds]);
    }
  }
}
