#include "tests/support/PrivateSession.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

void enterPrivateSession(int argc, char *argv[], Screen screen) {
  if (std::getenv("PRIVATE_DESKTOP") != nullptr) return;
  std::vector<char *> arguments = {const_cast<char *>(PRIVATE_DESKTOP_TOOL)};
  if (screen == Screen::None) arguments.push_back(const_cast<char *>("--no-display"));
  for (int i = 0; i < argc; ++i) {
    if (std::string_view(argv[i]) == "--gtest_list_tests") return;
    arguments.push_back(argv[i]);
  }
  arguments.push_back(nullptr);
  execv(arguments.front(), arguments.data());
  std::perror(PRIVATE_DESKTOP_TOOL);
  std::exit(1);
}
