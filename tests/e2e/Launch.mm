#include <gtest/gtest.h>

#include "tests/e2e/OwnProcesses.h"
#import "tests/e2e/RunningApplication.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/PlatformServer.h"
#include "tests/support/Strings.h"

namespace {

NSString *operation(NSDictionary *call) {
  return [call objectForKey:@"operation"];
}

bool pluginWasRegistered(NSDictionary *call) {
  return [[call objectForKey:@"pluginIsRegistered"] boolValue];
}

const Lines kLinesOfAGoodLaunch = {"Context Menu Application Launched for first time",
                                   "Context Menu Plugin Connection successfully created."};

struct Launch : OwnProcesses {};

/// Which waits for one first, and so takes long.
struct LaunchWithoutAgent : OwnProcesses {};

}  // namespace

TEST_F(Launch, AsksForTheAddressBookThenRegistersThenAsksForTheHomeFolder) {
  AgentProcess agent;
  RunningApplication application;
  ASSERT_TRUE(application.waitUntilServing()) << application.process().output();
  NSArray *const calls = agent.calls();
  ASSERT_EQ([calls count], 2u);
  EXPECT_EQ(text(operation([calls objectAtIndex:0])), "getEmployeeAddressBook");
  EXPECT_FALSE(pluginWasRegistered([calls objectAtIndex:0]));
  EXPECT_EQ(text(operation([calls objectAtIndex:1])), "getHomeDirectoryInfo");
  EXPECT_TRUE(pluginWasRegistered([calls objectAtIndex:1]));
  EXPECT_EQ(application.log(), afterStart(kLinesOfAGoodLaunch));
}

TEST_F(LaunchWithoutAgent, CompletesAndServesThePlugin) {
  RunningApplication application;
  ASSERT_TRUE(application.waitUntilServing()) << application.process().output();
  EXPECT_EQ(application.log(), afterStart(kLinesOfAGoodLaunch));
}

TEST_F(Launch, ServesThePluginWhileTheServerOfNotificationsHangs) {
  AgentProcess agent;
  // Starts the server, which then keeps running.
  [[NSDistributedNotificationCenter defaultCenter] postNotificationName:@"a" object:nil];
  PlatformServer server("gdnc");
  server.stop();
  RunningApplication application;
  EXPECT_TRUE(application.waitUntilServing()) << application.process().output();
  EXPECT_EQ(application.log(), afterStart(kLinesOfAGoodLaunch));
}

TEST_F(LaunchWithoutAgent, ShowsNoAlert) {
  RunningApplication application;
  ASSERT_TRUE(application.waitUntilServing());
  EXPECT_FALSE(RunningApplication::isVisible());
}

TEST_F(Launch, ASyncEngineThatCannotBeginIsIgnored) {
  AgentProcess agent;
  RunningApplication application({{"LD_PRELOAD", FAILING_ENGINE}});
  EXPECT_TRUE(application.waitUntilServing()) << application.process().output();
  Lines lines = afterStart(kLinesOfAGoodLaunch);
  lines.insert(lines.begin(), "engine: BvInitialize");
  EXPECT_EQ(application.log(), lines);
}

TEST_F(Launch, TheProbeEndsTheSyncEngineOnlyWhenItCouldBegin) {
  AgentProcess agent;
  RunningApplication good({{"LD_PRELOAD", LOGGING_ENGINE}});
  ASSERT_TRUE(good.waitUntilServing());
  EXPECT_EQ(good.process().countInOutput("engine: BvInitialize"), 1);
  EXPECT_EQ(good.process().countInOutput("engine: BvUninitialize"), 1);
  good.process().signal(SIGKILL);
  good.process().waitForEnd();
  RunningApplication bad({{"LD_PRELOAD", FAILING_ENGINE}});
  ASSERT_TRUE(bad.waitUntilServing());
  EXPECT_EQ(bad.process().countInOutput("engine: BvInitialize"), 1);
  EXPECT_EQ(bad.process().countInOutput("engine: BvUninitialize"), 0);
}

TEST_F(Launch, ANameThatIsTakenIsLoggedAndDoesNotStopTheApplication) {
  AgentProcess agent;
  const AgentProcess other({.identifier = "org.example.other", .name = "ContextMenuPlugin"});
  RunningApplication application;
  // Its launch continues: the home folder is requested after the registration.
  EXPECT_TRUE(waitFor([&] { return [agent.calls() count] == 2; }));
  EXPECT_EQ(application.log(), afterStart({kLinesOfAGoodLaunch[0],
                                           "Context Menu Plugin Connection could not be created"}));
  EXPECT_FALSE(application.process().hasEnded());
}

TEST_F(Launch, AnAgentThatStartsWhileTheApplicationWaitsIsFound) {
  RunningApplication application;
  ASSERT_TRUE(application.process().waitForOutput("Launched for first time"));
  AgentProcess agent;
  ASSERT_TRUE(application.waitUntilServing());
  EXPECT_TRUE(waitFor([&] { return [agent.calls() count] == 2; }));
}

TEST_F(Launch, LoadsNoLibrariesForPicturesThatNobodyHas) {
  AgentProcess agent;
  RunningApplication application;
  ASSERT_TRUE(application.waitUntilServing());
  const std::string maps = "/proc/" + std::to_string(application.process().pid()) + "/maps";
  EXPECT_NE(outputOf({"/bin/grep", "-c", "libgnustep-gui", maps}), "");
  EXPECT_EQ(outputOf({"/bin/grep", "ImageMagick.*/coders/", maps}), "");
}

// Each source would bring those of all headers, and the launch would register them one by one.
TEST_F(Launch, LoadsNoDescriptionsOfThePlatformsProtocols) {
  const std::string program = RunningApplication::program();
  EXPECT_NE(outputOf({"/bin/grep", "-c", "-a", "ContextMenuService", program}), "");
  EXPECT_EQ(
      outputOf({"/bin/grep", "-c", "-a", "NSAccessibilityCustomRotorItemSearchDelegate", program}),
      "");
}
