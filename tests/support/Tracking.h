#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <vector>

@class TrackingTimer;

/// The steps of a user while the application tracks the mouse in a loop of its own and the test
/// waits for the end of that. Each step is taken when the tracking waits for events, so that the
/// events of the step before have been handled. Steps that are left at destruction are never taken.
/// Main thread.
class TrackingSteps {
 public:
  explicit TrackingSteps(std::vector<std::function<void()>> steps);
  ~TrackingSteps();
  TrackingSteps(const TrackingSteps &) = delete;
  TrackingSteps &operator=(const TrackingSteps &) = delete;

  /// How many have been taken.
  std::size_t taken() const { return taken_; }

  /// Takes the next one, if there is one.
  void takeNext();

 private:
  std::vector<std::function<void()>> steps_;
  std::size_t taken_ = 0;
  TrackingTimer *timer_;
};
