#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/ChildProcess.h"

namespace fs = std::filesystem;

namespace {

/// The platform's folder of names, which the first look-up creates.
fs::path namesFolder() {
  [[NSMessagePortNameServer sharedInstance] portForName:@"nobody" onHost:nil];
  return fs::path([NSTemporaryDirectory() fileSystemRepresentation]) / "NSMessagePort" / "names";
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
