#pragma once

#import <Foundation/Foundation.h>

#include <string>

#include "tests/support/ChildProcess.h"

/// A file manager with a scripted selection, as a separate process behind the real file manager's
/// connection. Nothing is selected at first. The destructor ends it.
class FileManagerProcess {
 public:
  /// Returns when the file manager is reachable.
  FileManagerProcess();

  /// paths: in the order in which they are selected, folders without a slash at their end.
  void select(NSArray *paths) const;

  /// What it does when it is asked for the selection (tests/support/agent/Script.h).
  void setScript(NSDictionary *entry) const;

  /// How many times it has been asked for the selection.
  int questions() const { return process_.countInOutput("asked"); }

  ChildProcess &process() { return process_; }

 private:
  std::string script_;
  ChildProcess process_;
};
