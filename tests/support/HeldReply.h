#pragma once

#import <Foundation/Foundation.h>

#include <string>

/// A reply of a scripted process (tests/support/agent/Script.h) that it holds back until the test
/// says so: the process hangs in the call meanwhile. The destructor releases it, too.
class HeldReply {
 public:
  HeldReply();
  ~HeldReply();
  HeldReply(const HeldReply &) = delete;
  HeldReply &operator=(const HeldReply &) = delete;

  /// The entry of a script, with what holds it back. Autoreleased.
  NSDictionary *entry(NSDictionary *entry) const;

  /// The process does what the entry says. Any thread.
  void release() const;

 private:
  std::string path_;
};
