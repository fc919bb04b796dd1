// Linked into every program of a build with a sanitizer, so that its options hold however the
// program is started: by ctest, by hand, by another program, or by the build itself, which asks the
// tests for their names. The variables ASAN_OPTIONS, LSAN_OPTIONS, UBSAN_OPTIONS and TSAN_OPTIONS
// still win.
//
// The platform asks the allocator for any length that a stranger's bytes announce. The system's
// allocator refuses 32 gigabytes and reserves one without touching it; a sanitizer's would end the
// program for the first and poison all of the second, which takes minutes. So it refuses lengths
// that no valid call needs.
#define REFUSED_ALLOCATIONS "allocator_may_return_null=1:max_allocation_size_mb=256"

extern "C" {

const char *__asan_default_options() {
  // A leak's stack goes wrong where it leads through libraries that keep no frame pointers; with
  // fast_unwind_on_malloc=0 it is whole, and everything takes up to thirty times as long.
  return "halt_on_error=1:" REFUSED_ALLOCATIONS;
}

const char *__lsan_default_options() {
  return "print_suppressions=0:suppressions=" SANITIZER_SUPPRESSIONS "/lsan.supp";
}

const char *__ubsan_default_options() {
  return "halt_on_error=1:print_stacktrace=1";
}

const char *__tsan_default_options() {
  return "halt_on_error=1:second_deadlock_stack=1:" REFUSED_ALLOCATIONS
         ":suppressions=" SANITIZER_SUPPRESSIONS "/tsan.supp";
}

}  // extern "C"

#if __has_feature(thread_sanitizer)
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace {
// The thread sanitizer starts a thread of its own with the first one of a program, and wakes it ten
// times a second. Here that is at the start, and it gets a name by which tests that count threads
// leave it out (tests/support/ProcessActivity.cpp).
const bool isSanitizersThreadNamed = [] {
  std::thread([] {}).join();
  const std::string main = std::to_string(getpid());
  for (const auto &thread : std::filesystem::directory_iterator("/proc/self/task")) {
    if (thread.path().filename() != main) std::ofstream(thread.path() / "comm") << "sanitizer";
  }
  return true;
}();
}  // namespace
#endif
