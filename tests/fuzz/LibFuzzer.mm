// Runs one target, which the build defines, under libFuzzer.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "tests/fuzz/Target.h"

void fuzz::broken(const char *promise) {
  std::fprintf(stderr, "broken promise: %s\n", promise);
  std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
  fuzz::run(fuzz::FUZZ_TARGET, {reinterpret_cast<const char *>(bytes), size});
  return 0;
}
