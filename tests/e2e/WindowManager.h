#pragma once

#include "tests/support/ChildProcess.h"

/// A window manager on the private screen, on which otherwise none runs. It ends with this object.
class WindowManager {
 public:
  /// Returns when it manages the screen; throws std::runtime_error when that does not come to be.
  WindowManager();

  const ChildProcess &process() const { return process_; }

 private:
  ChildProcess process_;
};
