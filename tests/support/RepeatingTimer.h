#pragma once

#import <Foundation/Foundation.h>

#include <functional>

/// Calls a function repeatedly for its lifetime, about as often as a user looks at the screen,
/// while the current run loop runs in one mode. Main thread.
class RepeatingTimer {
 public:
  /// mode: for example NSModalPanelRunLoopMode.
  RepeatingTimer(NSString *mode, std::function<void()> fire);
  ~RepeatingTimer();
  RepeatingTimer(const RepeatingTimer &) = delete;
  RepeatingTimer &operator=(const RepeatingTimer &) = delete;

 private:
  NSTimer *timer_;  // owned by the run loop
};
