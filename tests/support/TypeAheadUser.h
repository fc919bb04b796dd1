#pragma once

#import <AppKit/AppKit.h>

#include <functional>

#include "tests/support/RepeatingTimer.h"

/// A user who presses keys in a window once while the main thread waits for the reply of another
/// process.
class TypeAheadUser {
 public:
  /// when: checked while the main thread waits; the keys are pressed as soon as it holds. then:
  /// runs after that, still before the reply is read, for example to have the other process reply.
  TypeAheadUser(
      NSWindow *window, NSString *keys, std::function<bool()> when = [] { return true; },
      std::function<void()> then = [] {});
  ~TypeAheadUser();
  TypeAheadUser(const TypeAheadUser &) = delete;
  TypeAheadUser &operator=(const TypeAheadUser &) = delete;

  bool hasTyped() const { return hasTyped_; }

 private:
  void look();

  NSWindow *window_;
  NSString *keys_;
  std::function<bool()> when_;
  std::function<void()> then_;
  bool hasTyped_ = false;
  RepeatingTimer timer_;  // last, so that it ends first
};
