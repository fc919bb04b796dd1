#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#import "agent/AgentIdentity.h"
#import "agent/BVDataModelController.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/CapturedLog.h"

namespace {

/// Asks the platform to do as it is told with administrator's rights where this user lacks them.
bool asAdministrator(const std::string &command) {
  const std::string prefix = getuid() == 0 ? "" : "sudo -n ";
  return std::system((prefix + command).c_str()) == 0;
}

/// An application at the agent's fixed place, which writes a file when it is started. Taken away
/// again in the end. The place must be free: a real installation is not touched.
class InstalledAgent {
 public:
  InstalledAgent() : mark_(newTemporaryFolder() + "/started"), draft_(newTemporaryFolder()) {
    namespace fs = std::filesystem;
    const fs::path application = fs::path(draft_) / "VeldaneKRVAgent.app";
    fs::create_directories(application / "Resources");
    std::ofstream(application / "Resources" / "Info-gnustep.plist")
        << "{ NSExecutable = VeldaneKRVAgent; }\n";
    const fs::path program = application / "VeldaneKRVAgent";
    std::ofstream(program) << "#!/bin/sh\necho started > '" << mark_ << "'\n";
    fs::permissions(program, fs::perms::owner_all);
    isInstalled_ =
        !fs::exists(place()) &&
        asAdministrator("mkdir -p '" + place().parent_path().string() + "'") &&
        asAdministrator("ln -s '" + application.string() + "' '" + place().string() + "'");
  }
  ~InstalledAgent() {
    if (isInstalled_) asAdministrator("rm '" + place().string() + "'");
  }

  bool isInstalled() const { return isInstalled_; }
  bool wasStarted() const { return std::filesystem::exists(mark_); }

 private:
  static std::filesystem::path place() { return [agent::kApplicationPath UTF8String]; }

  std::string mark_;
  std::string draft_;
  bool isInstalled_ = false;
};

using Lines = std::vector<std::string>;

}  // namespace

TEST(AgentLaunch, ARunningAgentIsNotStartedAndNothingIsLogged) {
  InstalledAgent installed;
  ASSERT_TRUE(installed.isInstalled());
  AgentProcess agent;
  BVDataModelController *const controller = [[[BVDataModelController alloc] init] autorelease];
  const CapturedLog log;
  [controller launchMyAppIfNotRunning];
  EXPECT_EQ(log.lines(), Lines());
  EXPECT_FALSE(installed.wasStarted());
}

TEST(AgentLaunch, AMissingAgentIsLoggedAndStartedFromItsPlace) {
  InstalledAgent installed;
  ASSERT_TRUE(installed.isInstalled());
  AgentProcess stranger({.identifier = "org.example.other"});
  BVDataModelController *const controller = [[[BVDataModelController alloc] init] autorelease];
  const CapturedLog log;
  [controller launchMyAppIfNotRunning];
  ASSERT_FALSE(log.lines().empty());
  EXPECT_EQ(log.lines().front(), "Launching KRV Agent..");
  EXPECT_TRUE(waitFor([&] { return installed.wasStarted(); }));
}
