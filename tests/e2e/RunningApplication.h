#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <vector>

#include "tests/support/CapturedLog.h"
#include "tests/support/ChildProcess.h"

/// The application itself, as a process of its own, on the private session's screen.
class RunningApplication {
 public:
  /// Starts it; see waitUntilServing. environment: additions to this process's own.
  explicit RunningApplication(const ChildProcess::Environment &environment = {});

  /// The same for a copy of the application elsewhere. program: the path of its executable.
  RunningApplication(const std::string &program, const ChildProcess::Environment &environment);

  /// The path of the application's executable.
  static std::string program();

  /// Waits until the application replies under its name, as waitFor does; returns whether it does.
  bool waitUntilServing();

  /// All that it has logged or printed so far (CapturedLog.h).
  Lines log() const;

  /// Whether a window of an application of this name is visible on the screen.
  static bool isVisible();

  ChildProcess &process() { return process_; }
  const ChildProcess &process() const { return process_; }

 private:
  ChildProcess process_;
};

/// environment for an application that ends in the middle of something, where the address sanitizer
/// would take for leaks what it still needed.
ChildProcess::Environment withoutLeakSearch(ChildProcess::Environment environment = {});

/// These lines after those that the platform logs first where no window manager runs.
Lines afterStart(const Lines &lines);

/// Another program's view of the clipboard: what xclip reads from it.
std::string clipboardReadByXclip();

/// Runs a program and returns its output; "" when it fails.
std::string outputOf(const std::vector<std::string> &command);

/// Presses the Return key in the frontmost window, as a user does.
void pressReturn();
