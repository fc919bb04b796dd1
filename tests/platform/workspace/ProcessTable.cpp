#include "platform/gnustep/workspace/ProcessTable.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "tests/support/ChildProcess.h"

using platform::bundleOfExecutable;

TEST(ProcessTable, TheProgramDirectlyInABundleIsItsApplication) {
  EXPECT_EQ(bundleOfExecutable("/opt/Agent.app/Agent"), "/opt/Agent.app");
}

TEST(ProcessTable, TheMacLayoutIsKnownToo) {
  EXPECT_EQ(bundleOfExecutable("/opt/Agent.app/Contents/MacOS/Agent"), "/opt/Agent.app");
}

TEST(ProcessTable, AToolInsideABundleIsNoApplication) {
  EXPECT_FALSE(bundleOfExecutable("/opt/Agent.app/Resources/tool").has_value());
}

TEST(ProcessTable, OtherProgramsAreNoApplications) {
  EXPECT_FALSE(bundleOfExecutable("/usr/bin/sh").has_value());
  EXPECT_FALSE(bundleOfExecutable("/opt/.app/x").has_value());
  EXPECT_FALSE(bundleOfExecutable("x").has_value());
  EXPECT_FALSE(bundleOfExecutable("").has_value());
}

TEST(ProcessTable, AReplacedProgramStillRuns) {
  EXPECT_EQ(bundleOfExecutable("/opt/Agent.app/Agent (deleted)"), "/opt/Agent.app");
}

namespace {

bool isListed(pid_t pid) {
  const auto all = platform::runningApplicationProcesses();
  return std::any_of(all.begin(), all.end(), [&](const auto &entry) { return entry.pid == pid; });
}

std::string sleepingApplication() {
  const std::string bundle = newTemporaryFolder() + "/Ünïcode 名.app";
  std::filesystem::create_directories(bundle);
  std::filesystem::copy_file("/bin/sleep", bundle + "/sleeper");
  return bundle + "/sleeper";
}

}  // namespace

TEST(ProcessTable, ARunningApplicationIsListedUntilItEnds) {
  ChildProcess child({sleepingApplication(), "1000"});
  EXPECT_TRUE(waitFor([&] { return isListed(child.pid()); }));
  child.signal(SIGKILL);
  child.waitForEnd();
  EXPECT_FALSE(isListed(child.pid()));
}

TEST(ProcessTable, AProcessHasEndedWhenItsParentHasNotHeardOfItYet) {
  ChildProcess child({"/bin/sleep", "1000"});
  EXPECT_FALSE(platform::hasExited(child.pid()));
  child.signal(SIGKILL);
  EXPECT_TRUE(waitFor([&] { return platform::hasExited(child.pid()); }));
  child.waitForEnd();
  EXPECT_TRUE(platform::hasExited(child.pid()));
}

TEST(ProcessTable, AnOrdinaryProgramIsNotListed) {
  ChildProcess child({"/bin/sleep", "1000"});
  EXPECT_FALSE(isListed(child.pid()));
}
