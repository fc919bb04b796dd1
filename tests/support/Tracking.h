#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <vector>

@class TrackingTimer;

/// What somebody does, step by step, while the application follows the mouse in a loop of its own
/// and the test waits for the end of that. Each step is taken when the tracking waits for events,
/// so that what the step before has posted has been dealt with. Steps that are left when this goes
/// away are never taken. Main thread.
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
