// A sync engine library that says on standard output that it is called. Built twice: once able to
// begin, once not.
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
