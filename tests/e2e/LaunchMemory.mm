#include <gtest/gtest.h>

#include <fstream>

#include "tests/e2e/OwnProcesses.h"
#import "tests/e2e/RunningApplication.h"
#include "tests/support/AgentProcess.h"

// What the launch leaves in the heap of the system's allocator. Not built with a sanitizer, which
// has an allocator of its own.

namespace {

/// What the process's heap takes and how much of that is in memory, in KiB.
struct Heap {
  long size = 0;
  long resident = 0;
};

long kibibytes(const std::string &line) {
  return std::stol(line.substr(line.find(':') + 1));
}

Heap heapOf(pid_t process) {
  std::ifstream mappings("/proc/" + std::to_string(process) + "/smaps");
  std::string line;
  while (std::getline(mappings, line) && !line.ends_with("[heap]")) {
  }
  Heap heap;
  while (heap.resident == 0 && std::getline(mappings, line)) {
    if (line.starts_with("Size:")) heap.size = kibibytes(line);
    if (line.starts_with("Rss:")) heap.resident = kibibytes(line);
  }
  return heap;
}

struct LaunchMemory : OwnProcesses {};

}  // namespace

TEST_F(LaunchMemory, ThatWasOnlyNeededMeanwhileIsReturned) {
  AgentProcess agent;
  RunningApplication application;
  ASSERT_TRUE(application.waitUntilServing());
  ASSERT_GT(heapOf(application.process().pid()).resident, 0);
  // At most nine tenths are in memory; before, all but some pages are.
  EXPECT_TRUE(waitFor([&] {
    const Heap heap = heapOf(application.process().pid());
    return heap.resident * 10 < heap.size * 9;
  }));
}
