#pragma once

extern "C" {

// The leak checker's, which are there in a build for the address sanitizer only.
[[gnu::weak]] void __lsan_disable();
[[gnu::weak]] void __lsan_enable();

}  // extern "C"

/// While it stands, what this thread loses is not counted as lost: around a call in which the
/// platform loses memory and which the application does not make. Whoever uses it says what is
/// lost.
class PlatformLeak {
 public:
  PlatformLeak() {
    if (__lsan_disable != nullptr) __lsan_disable();
  }
  ~PlatformLeak() {
    if (__lsan_enable != nullptr) __lsan_enable();
  }
  PlatformLeak(const PlatformLeak &) = delete;
  PlatformLeak &operator=(const PlatformLeak &) = delete;
};
