#include "bench/day/Usage.h"

#import <Foundation/Foundation.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "bench/support/Memory.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/ProcessActivity.h"

namespace fs = std::filesystem;

namespace {

/// Longer than from the end of a refresh to that of the next one, and a second.
constexpr double kRestSeconds = 4;

constexpr double kBytesOfKiB = 1024;

/// The size of the allocator's arenas.
constexpr double kAllocatedBoundKiB = 1024;

/// The sum of 1.5 KiB a window and of the events between two measurements (docs/performance.md).
constexpr double kInUseBoundKiB = 384;

template <class Matches>
int countIn(const fs::path &folder, Matches matches) {
  int count = 0;
  // An entry may disappear while it is read.
  std::error_code ignored;
  for (const auto &entry : fs::directory_iterator(folder, ignored)) count += matches(entry);
  return count;
}

bool isSocket(const fs::directory_entry &descriptor) {
  std::error_code ignored;
  return fs::read_symlink(descriptor.path(), ignored).string().starts_with("socket:");
}

bool isAnything(const fs::directory_entry &entry) {
  (void)entry;
  return true;
}

/// The platform's folder of ports and of their names; in a private session only this one's.
fs::path portFolder() {
  @autoreleasepool {
    return fs::path([NSTemporaryDirectory() fileSystemRepresentation]) / "NSMessagePort";
  }
}

int windowsOf(const std::string &windowClass) {
  ChildProcess search({"/usr/bin/xdotool", "search", "--classname", windowClass});
  search.waitForEnd();
  return search.countInOutput("\n");
}

Usage usageNow(pid_t process, const CountedMemory &counted) {
  const fs::path folder = fs::path("/proc") / std::to_string(process);
  const MemoryUse memory = memoryOf(process);
  const std::string ownPort = std::to_string(process) + ".";
  Usage usage;
  usage.residentKiB = memory.resident;
  usage.allocatedKiB = memory.anonymous;
  usage.inUseKiB = static_cast<double>(counted.bytesInUse()) / kBytesOfKiB;
  usage.descriptors = countIn(folder / "fd", isAnything);
  usage.sockets = countIn(folder / "fd", isSocket);
  usage.ports = countIn(portFolder() / "ports", [&](const fs::directory_entry &entry) {
    return entry.path().filename().string().starts_with(ownPort);
  });
  usage.names = countIn(portFolder() / "names", isAnything);
  usage.threads = countIn(folder / "task", isAnything);
  return usage;
}

Usage leastOf(const Usage &one, const Usage &other) {
  Usage least;
  least.residentKiB = std::min(one.residentKiB, other.residentKiB);
  least.allocatedKiB = std::min(one.allocatedKiB, other.allocatedKiB);
  least.inUseKiB = std::min(one.inUseKiB, other.inUseKiB);
  least.descriptors = std::min(one.descriptors, other.descriptors);
  least.sockets = std::min(one.sockets, other.sockets);
  least.ports = std::min(one.ports, other.ports);
  least.names = std::min(one.names, other.names);
  least.threads = std::min(one.threads, other.threads);
  return least;
}

}  // namespace

const std::vector<Column> &columns() {
  static const std::vector<Column> all = {
      // Not bounded: how much of a font's or library's file is in memory is the system's decision.
      {"resident KiB", [](const Usage &usage) { return usage.residentKiB; }, Bounded::Not},
      {"allocated KiB", [](const Usage &usage) { return usage.allocatedKiB; }, Bounded::Growth,
       kAllocatedBoundKiB},
      {"in use KiB", [](const Usage &usage) { return usage.inUseKiB; }, Bounded::Growth,
       kInUseBoundKiB},
      {"descriptors", [](const Usage &usage) -> double { return usage.descriptors; },
       Bounded::Growth, 0},
      {"sockets", [](const Usage &usage) -> double { return usage.sockets; }, Bounded::Growth, 0},
      {"ports", [](const Usage &usage) -> double { return usage.ports; }, Bounded::Growth, 0},
      {"names", [](const Usage &usage) -> double { return usage.names; }, Bounded::Growth, 0},
      {"windows", [](const Usage &usage) -> double { return usage.windows; }, Bounded::Growth, 0},
      {"threads", [](const Usage &usage) -> double { return usage.threads; }, Bounded::Growth, 0},
      {"wake-ups/s", [](const Usage &usage) { return usage.wakeUps; }, Bounded::Value, 0},
      {"processor ms/s", [](const Usage &usage) { return usage.processorMilliseconds; },
       Bounded::Value, 0}};
  return all;
}

Usage usageAtRest(pid_t process, const CountedMemory &memory, const std::string &windowClass) {
  Usage usage = usageNow(process, memory);
  const SecondOfActivity quietest = quietestSecond(
      process, kRestSeconds, [&] { usage = leastOf(usage, usageNow(process, memory)); });
  usage.wakeUps = static_cast<double>(quietest.wakeUps);
  usage.processorMilliseconds = quietest.processorMilliseconds;
  usage.windows = windowsOf(windowClass);
  return usage;
}
