#pragma once

#import <AppKit/AppKit.h>

#include <functional>

/// While one of these lives, somebody presses keys in a window once, while the main thread waits
/// for the reply of another process.
class ImpatientUser {
 public:
  /// when: asked while the main thread waits; the keys are pressed as soon as it holds.
  ImpatientUser(
      NSWindow *window, NSString *keys, std::function<bool()> when = [] { return true; });
  ~ImpatientUser();
  ImpatientUser(const ImpatientUser &) = delete;
  ImpatientUser &operator=(const ImpatientUser &) = delete;

  bool hasTyped() const { return hasTyped_; }

  /// Called by a timer.
  void look();

 private:
  NSWindow *window_;
  NSString *keys_;
  std::function<bool()> when_;
  NSTimer *timer_;
  bool hasTyped_ = false;
};
