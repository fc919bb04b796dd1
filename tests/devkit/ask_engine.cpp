// Asks the engine for the ids of the files named as arguments and prints one a line, so that tests
// can let several processes ask at once.
#include <cstdio>

#include "app/BVSyncEngine.h"

int main(int argc, char *argv[]) {
  for (int index = 1; index < argc; ++index) {
    char *id = nullptr;
    int code = BvInitialize();
    if (code == 0) code = BvGetFileIdByName(argv[index], &id);
    BvUninitialize();
    if (code != 0) {
      std::fprintf(stderr, "%s: %d\n", argv[index], code);
      return 1;
    }
    std::printf("%s\n", id);
  }
  return 0;
}
