#include "tests/support/ProgramEnd.h"

#include <unistd.h>

#include <cstdio>

extern "C" {

// The leak checker's, which is there in a build for the address sanitizer only. It tells of what
// it found and answers whether that was anything.
[[gnu::weak]] int __lsan_do_recoverable_leak_check();

}  // extern "C"

void endProgram(int result) {
  std::fflush(stdout);
  const bool looksForLeaks = __lsan_do_recoverable_leak_check != nullptr;
  if (looksForLeaks && __lsan_do_recoverable_leak_check() != 0 && result == 0) result = 1;
  _exit(result);
}
