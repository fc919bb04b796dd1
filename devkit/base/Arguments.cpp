#include "devkit/base/Arguments.h"

#include <cstring>
#include <string_view>

#include "devkit/base/Text.h"

namespace {

/// The original arguments, one after the other. Plain memory, because this is filled before
/// anything that C++ or the platform need has been set up; a system's limit for one argument is an
/// eighth of it.
char originals[1024 * 1024];

void keepAndRepair(int argc, char *argv[], char **) {
  std::size_t used = 0;
  for (int index = 1; index < argc; ++index) {
    const std::size_t size = std::strlen(argv[index]) + 1;
    if (used + size > sizeof originals) return;
    std::memcpy(originals + used, argv[index], size);
    used += size;
    std::string_view rest(argv[index], size - 1);
    for (char *position = argv[index]; !rest.empty();) {
      const auto length = devkit::utf8CharacterLength(rest);
      if (length == 0) *position = '?';
      position += length == 0 ? 1 : length;
      rest.remove_prefix(length == 0 ? 1 : length);
    }
  }
}

// Functions in this section run before those of any library, Foundation's included.
[[gnu::section(".preinit_array"), gnu::used]] void (*const runFirst)(int, char *[],
                                                                     char **) = keepAndRepair;

}  // namespace

namespace devkit {

std::vector<std::string> originalArguments(int argc, char *argv[]) {
  std::vector<std::string> arguments;
  const char *original = originals;
  for (int index = 1; index < argc; ++index) {
    // Repairing keeps the length; an argument that did not fit into the buffer is unchanged.
    const auto size = std::strlen(argv[index]);
    const bool kept =
        original + size < originals + sizeof originals && std::strlen(original) == size;
    arguments.emplace_back(kept ? original : argv[index], size);
    original += kept ? size + 1 : 0;
  }
  return arguments;
}

}  // namespace devkit
