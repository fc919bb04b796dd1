#pragma once

#include "tests/support/CapturedLog.h"

@class ActivationObserver;

/// What is logged when the application becomes active, as it does when its first window opens.
inline constexpr const char *kActivated = "Context Menu Application Did Become Active";

/// Where in a log the application has become active during the lifetime of one of these, which it
/// logs. How often it does is the platform's: it depends on when the window server moves the
/// keyboard from one window to the next. Main thread; the application must have its delegate.
class ActivationsInLog {
 public:
  /// log: must live as long.
  explicit ActivationsInLog(const CapturedLog &log);
  ~ActivationsInLog();
  ActivationsInLog(const ActivationsInLog &) = delete;
  ActivationsInLog &operator=(const ActivationsInLog &) = delete;

  /// These lines and one for each activation, in the place in which it belongs: what is in the log
  /// since this was made when nothing else was logged.
  Lines with(Lines lines) const;

 private:
  ActivationObserver *observer_;
};
