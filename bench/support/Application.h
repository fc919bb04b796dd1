#pragma once

#import <Foundation/Foundation.h>

#include <memory>
#include <string>

#include "tests/support/ChildProcess.h"

/// A program that vends an object under a name.
struct Program {
  std::string path;
  NSString *connectionName;
  /// Additions to this process's own.
  ChildProcess::Environment environment;
};

/// The application itself, with a sync engine library that does nothing, and the yardsticks.
Program contextMenuApp();
Program bareCopy();
Program emptyApplication();

/// A running program. It is killed by the destructor.
class Application {
 public:
  /// Starts it; returns at once.
  explicit Application(const Program &program);
  ~Application();
  Application(const Application &) = delete;
  Application &operator=(const Application &) = delete;

  /// Waits until the program answers and returns its root object; throws std::runtime_error after a
  /// minute. Autoreleased: must be released before the program ends.
  NSDistantObject *rootProxy();

  ChildProcess &process() { return *process_; }

 private:
  Program program_;
  std::unique_ptr<ChildProcess> process_;
};
