#pragma once

extern "C" {

// The leak checker's, which are there in a build for the address sanitizer only.
[[gnu::weak]] void __lsan_disable();
[[gnu::weak]] void __lsan_enable();

}  // extern "C"

/// Memory that this thread allocates during its lifetime is never reported as leaked: for calls in
/// which the platform leaks and which the application does not make. Each use has a comment that
/// says what leaks.
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
