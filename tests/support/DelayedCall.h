#pragma once

#import <Foundation/Foundation.h>

#include <functional>

/// Calls a function once, some time after this object was made, while the current run loop runs in
/// its default mode. Main thread.
///
/// A yardstick for the program's own timers, which tells how long they take without a clock: on a
/// busy machine a run loop fires timers late, but of two that are due the one that was made first
/// comes first.
class DelayedCall {
 public:
  DelayedCall(NSTimeInterval seconds, std::function<void()> call);
  ~DelayedCall();
  DelayedCall(const DelayedCall &) = delete;
  DelayedCall &operator=(const DelayedCall &) = delete;

 private:
  NSTimer *timer_;  // retained
};
