#include "bench/support/Memory.h"

#include <fstream>
#include <stdexcept>
#include <string>

namespace {

/// The number after `key` in a file of lines "Key:   123 kB", 0 when there is none.
double sumOf(const std::string &path, const std::string &key) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(key + ":")) return std::stod(line.substr(key.size() + 1));
  }
  return 0;
}

}  // namespace

MemoryUse memoryOf(pid_t process) {
  const std::string path = "/proc/" + std::to_string(process) + "/smaps_rollup";
  return {.resident = sumOf(path, "Rss"),
          .proportional = sumOf(path, "Pss"),
          .own = sumOf(path, "Private_Clean") + sumOf(path, "Private_Dirty"),
          .anonymous = sumOf(path, "Anonymous")};
}

double peakResident() {
  return sumOf("/proc/self/status", "VmHWM");
}

void resetPeak() {
  std::ofstream("/proc/self/clear_refs") << "5";
}
