#pragma once

#import <Foundation/Foundation.h>

#include <vector>

/// While one of these lives, calls to a vended object wait at the door, whatever run loop runs
/// meanwhile. An operation keeps one of its own, and so does an action of the context menu: between
/// its steps the platform runs the default mode here and there (to start its pasteboard server, for
/// one), and a second call that is served inside a first one would close the window or write the
/// clipboard that the first is working on. Main thread.
class ServingPause {
 public:
  /// rootObject: the object whose callers wait. One that is not vended has none, nor has nil.
  explicit ServingPause(id rootObject);
  ~ServingPause();
  ServingPause(const ServingPause &) = delete;
  ServingPause &operator=(const ServingPause &) = delete;

 private:
  std::vector<NSConnection *> paused_;  // retained: the one that listens and one for each client
};
