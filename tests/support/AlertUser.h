#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/RepeatingTimer.h"

/// One application-modal alert, as a test's user saw it.
struct SeenAlert {
  std::vector<std::string> texts;
  /// Whether an earlier key or click was still in the queue when the alert was shown.
  bool foundInput = false;
  bool shows(const std::string &text) const;
};

/// A user who, for this object's lifetime, reads every application-modal alert and dismisses it
/// with its first button.
class AlertUser {
 public:
  /// whileOpen: runs while an alert is on the screen, before it is dismissed.
  explicit AlertUser(std::function<void()> whileOpen = [] {});
  AlertUser(const AlertUser &) = delete;
  AlertUser &operator=(const AlertUser &) = delete;

  const std::vector<SeenAlert> &alerts() const { return alerts_; }

 private:
  /// Looks at the screen once.
  void look();

  std::function<void()> whileOpen_;
  std::vector<SeenAlert> alerts_;
  int session_ = 0;
  RepeatingTimer timer_;
};
