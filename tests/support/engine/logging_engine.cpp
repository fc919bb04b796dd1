// A sync engine library that prints its calls to standard output. Built twice: once with an
// initialisation that succeeds, once with one that fails.
#include <cstdio>

namespace {

int say(const char *function, int code) {
  std::printf("engine: %s\n", function);
  std::fflush(stdout);
  return code;
}

}  // namespace

extern "C" {
int BvInitialize(void) {
  return say("BvInitialize", INITIALIZE_CODE);
}
int BvUninitialize(void) {
  return say("BvUninitialize", 0);
}
}
