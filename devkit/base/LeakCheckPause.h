#pragma once

#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#endif

namespace devkit {

/// While one lives, what this thread allocates is never reported as leaked. For making the platform
/// set itself up, which leaves a few objects behind once in each process; around our own code it
/// would hide what the check is for. Does nothing in a build without the check.
class LeakCheckPause {
 public:
#if __has_feature(address_sanitizer)
  LeakCheckPause() {
    __lsan_disable();
  }
  ~LeakCheckPause() {
    __lsan_enable();
  }
#else
  LeakCheckPause() = default;
  ~LeakCheckPause() = default;
#endif
  LeakCheckPause(const LeakCheckPause &) = delete;
  LeakCheckPause &operator=(const LeakCheckPause &) = delete;
};

}  // namespace devkit
