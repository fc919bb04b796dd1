#include "tests/support/ProgramEnd.h"

#include <unistd.h>

#include <cstdio>

extern "C" {

// The leak checker's, which is there in a build for the address sanitizer only. It reports leaks
// and returns whether there were any.
[[gnu::weak]] int __lsan_do_recoverable_leak_check();

}  // extern "C"

void endProgram(int result) {
  std::fflush(stdout);
  const bool looksForLeaks = __lsan_do_recoverable_leak_check != nullptr;
  if (looksForLeaks && __lsan_do_recoverable_leak_check() != 0 && result == 0) result = 1;
  _exit(result);
}
