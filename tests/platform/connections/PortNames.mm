#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/ChildProcess.h"

namespace fs = std::filesystem;

namespace {

/// The platform's folder of names, which the first look-up creates.
fs::path namesFolder() {
  [[NSMessagePortNameServer sharedInstance] portForName:@"nobody" onHost:nil];
  return fs::path([NSTemporaryDirectory() fileSystemRepresentation]) / "NSMessagePort" / "names";
}

/// The lowest number that the kernel has given to one of this process's watched files. The numbers
/// of a descriptor only grow, and those of a new one begin at 1.
int lowestWatchNumber() {
  int lowest = INT_MAX;
  for (const fs::directory_entry &entry : fs::directory_iterator("/proc/self/fdinfo")) {
    std::ifstream content(entry.path());
    for (std::string word; content >> word;) {
      if (word.starts_with("wd:"))
        lowest = std::min(lowest, std::stoi(word.substr(3), nullptr, 16));
    }
  }
  return lowest;
}

NSConnection *connectionWithName(NSString *name) {
  NSConnection *const connection = [[[NSConnection alloc] init] autorelease];
  return [connection registerName:name] ? connection : nil;
}

}  // namespace

TEST(PortNames, ANameThatIsJustBeingWrittenIsNotTakenAwayByAProcessThatStarts) {
  const fs::path folder = namesFolder();
  NSDistributedLock *const lock =
      [NSDistributedLock lockWithPath:[NSString stringWithUTF8String:(folder / "lock").c_str()]];
  ASSERT_TRUE([lock tryLock]);
  const fs::path half = folder / "SGFsZg==";
  std::ofstream(half) << "/tmp/its-port";
  ChildProcess starting({PLUGIN_CALL, "id-1"});
  // It is waiting for the lock for names.
  EXPECT_TRUE(starting.waitForOutput("Failed to lock names"));
  EXPECT_TRUE(fs::exists(half));
  [lock unlock];
  starting.waitForEnd();
  EXPECT_FALSE(fs::exists(half)) << "with the lock, what is not whole is removed";
}

// The kernel takes 15 ms to close such a descriptor, a fifth of a launch.
TEST(PortNames, AnotherNameIsWatchedThroughTheDescriptorOfTheFirst) {
  NSConnection *const first = connectionWithName(@"the first");
  ASSERT_NE(first, nil);
  const int before = lowestWatchNumber();
  ASSERT_NE(before, INT_MAX);
  NSConnection *const second = connectionWithName(@"another");
  ASSERT_NE(second, nil);
  EXPECT_GT(lowestWatchNumber(), before);
  EXPECT_NE(lowestWatchNumber(), INT_MAX);
  [first invalidate];
  [second invalidate];
}
