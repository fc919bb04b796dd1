#pragma once

#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#endif

namespace devkit {

/// While one lives, what this thread allocates is never reported as leaked. For the platform's
/// initialisation, which leaks a few objects once in each process; around our own code it would
/// hide real leaks. Does nothing in a build without the check.
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
