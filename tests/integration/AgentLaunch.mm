#include <gtest/gtest.h>

#import <AppKit/AppKit.h>
#import <objc/runtime.h>

#include <filesystem>
#include <fstream>

#import "agent/BVDataModelController.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Strings.h"

namespace {

/// An application that writes a file when it is started.
class MarkingApplication {
 public:
  MarkingApplication() : mark_(newTemporaryFolder() + "/started") {
    namespace fs = std::filesystem;
    const fs::path application = fs::path(newTemporaryFolder()) / "VeldaneKRVAgent.app";
    fs::create_directories(application / "Resources");
    std::ofstream(application / "Resources" / "Info-gnustep.plist")
        << "{ NSExecutable = VeldaneKRVAgent; }\n";
    const fs::path program = application / "VeldaneKRVAgent";
    std::ofstream(program) << "#!/bin/sh\necho started > '" << mark_ << "'\n";
    fs::permissions(program, fs::perms::owner_all);
    path_ = application;
  }

  const std::string &path() const { return path_; }
  bool wasStarted() const { return std::filesystem::exists(mark_); }

 private:
  std::string mark_;
  std::string path_;
};

/// The platform's launching of applications, which starts a test application instead of the
/// requested one: the agent's own path belongs to a real installation.
class RedirectedLaunch {
 public:
  explicit RedirectedLaunch(const MarkingApplication &application)
      : method_(class_getInstanceMethod([NSWorkspace class], @selector(launchApplication:))) {
    asked.clear();
    place = [[NSString alloc] initWithUTF8String:application.path().c_str()];
    former =
        reinterpret_cast<Launch>(method_setImplementation(method_, reinterpret_cast<IMP>(launch)));
  }
  ~RedirectedLaunch() {
    method_setImplementation(method_, reinterpret_cast<IMP>(former));
    [place release];
  }

  /// The requested paths.
  static const std::vector<std::string> &paths() { return asked; }

 private:
  using Launch = BOOL (*)(id, SEL, NSString *);

  static BOOL launch(id self, SEL selector, NSString *path) {
    asked.push_back(text(path));
    return former(self, selector, place);
  }

  inline static std::vector<std::string> asked;
  inline static NSString *place;
  inline static Launch former;
  Method method_;
};

using Lines = std::vector<std::string>;

}  // namespace

TEST(AgentLaunch, ARunningAgentIsNotStartedAndNothingIsLogged) {
  const MarkingApplication application;
  const RedirectedLaunch launch(application);
  AgentProcess agent;
  BVDataModelController *const controller = [[[BVDataModelController alloc] init] autorelease];
  const CapturedLog log;
  [controller launchMyAppIfNotRunning];
  EXPECT_EQ(log.lines(), Lines());
  EXPECT_EQ(launch.paths(), Lines());
}

TEST(AgentLaunch, AMissingAgentIsLoggedAndStartedFromItsPlace) {
  const MarkingApplication application;
  const RedirectedLaunch launch(application);
  AgentProcess stranger({.identifier = "org.example.other"});
  BVDataModelController *const controller = [[[BVDataModelController alloc] init] autorelease];
  const CapturedLog log;
  [controller launchMyAppIfNotRunning];
  ASSERT_FALSE(log.lines().empty());
  EXPECT_EQ(log.lines().front(), "Launching KRV Agent..");
  EXPECT_EQ(launch.paths(), Lines{"/Applications/Veldane/Wayfold/VeldaneKRVAgent.app"});
  EXPECT_TRUE(waitFor([&] { return application.wasStarted(); }));
}
