#pragma once

#include "tests/support/ChildProcess.h"

/// A window manager on the private screen, on which otherwise none runs. The destructor ends it.
class WindowManager {
 public:
  /// Returns when it manages the screen; throws std::runtime_error when it does not.
  WindowManager();

  const ChildProcess &process() const { return process_; }

 private:
  ChildProcess process_;
};
