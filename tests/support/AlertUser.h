#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/RepeatingTimer.h"

/// What a test's user saw of one application-modal alert.
struct SeenAlert {
  std::vector<std::string> texts;
  /// Whether a key or click that had come before the alert was still waiting when it was shown.
  bool foundInput = false;
  bool shows(const std::string &text) const;
};

/// While one of these lives, somebody sits in front of the screen, reads every application-modal
/// alert and dismisses it with its first button.
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
