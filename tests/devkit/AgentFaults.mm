// What the development agent survives, and how it starts and ends.

#include <gtest/gtest.h>
#include <signal.h>

#include <cstdlib>
#include <filesystem>

#import "tests/devkit/DevelopmentAgent.h"
#import "tests/support/RawConnection.h"
#import "tests/support/Strings.h"

namespace {

bool answers(const DevelopmentAgent &agent) {
  return [[agent.proxy() getEmployeeAddressBook] objectForKey:@"value"] != nil;
}

struct Bytes {
  const char *what;
  std::string bytes;
};

void PrintTo(const Bytes &bytes, std::ostream *out) {
  *out << bytes.what;
}

class BadBytes : public testing::TestWithParam<Bytes> {};

}  // namespace

TEST_P(BadBytes, DoNotEndTheAgent) {
  const Kit kit;
  DevelopmentAgent agent;
  const RawConnection stranger("KRVSyncAgent");
  ASSERT_TRUE(stranger.isConnected());
  stranger.say(GetParam().bytes);
  EXPECT_TRUE(answers(agent));
  EXPECT_FALSE(agent.process().hasEnded()) << agent.process().output();
}

INSTANTIATE_TEST_SUITE_P(
    All, BadBytes,
    testing::Values(
        Bytes{"AnotherProtocol", "GET / HTTP/1.0\r\n\r\n"},
        Bytes{"EmptyHead", introduction() + wireNumber(3) + wireNumber(0)},
        Bytes{"NoItems", introduction() + wireMessage(2, 0, "")},
        Bytes{"UnknownMessage", introduction() + wireMessage(77, 1, "xxxx")},
        Bytes{"NoIntroduction", wireMessage(2, 1, "xxxx")},
        Bytes{"GarbageQuestion", introduction() + wireMessage(2, 1, std::string(64, '\x7F'))},
        Bytes{"GarbageCall", introduction() + wireMessage(0, 1, std::string(64, '\x01'))}),
    [](const auto &info) { return info.param.what; });

TEST(AgentFaults, ArgumentsOfEveryKindAreAnswered) {
  const Kit kit;
  const DevelopmentAgent agent;
  NSString *const huge = [@"" stringByPaddingToLength:4'000'000 withString:@"写" startingAtIndex:0];
  const unichar half = 0xD800;
  // The platform creates no such string in one step, but can append to one.
  NSString *const broken = [NSMutableString stringWithFormat:@"%C", half];
  // The last ones stay in this process; the agent gets proxies of them.
  NSArray *const arguments =
      @[ @"", huge, broken, @5, [NSNull null], [NSData data], @[ @"a" ],
         @{@"a" : @1} ];
  for (id argument in arguments) {
    NSDictionary *const reply = [agent.proxy() getLinkForFile:argument:YES:NO:argument:YES];
    EXPECT_NE([[reply objectForKey:@"error"] intValue], 0) << [[argument className] UTF8String];
    [agent.proxy() getAddressBook:argument];
    [agent.proxy() sendFile:argument:2:3:argument:argument:argument:argument:4:5];
  }
  [agent.proxy() grantAccess:nil:nil:NO:NO:NO:NO:NO:NO:nil];
  [agent.proxy() getUserInfo:nil:NO];
  EXPECT_TRUE(answers(agent));
}

TEST(AgentFaults, ASecondAgentSaysThatTheNameIsTaken) {
  const Kit kit;
  const DevelopmentAgent agent;
  ChildProcess second(agentCommand({}));
  EXPECT_EQ(second.waitForEnd(), 3);
  EXPECT_EQ(second.output(),
            "VeldaneKRVAgent: another agent is already registered as KRVSyncAgent\n");
}

TEST(AgentFaults, AskedToEndItGivesTheNameBack) {
  const Kit kit;
  for (const int signal : {SIGTERM, SIGINT}) {
    ChildProcess agent(agentCommand({}));
    ASSERT_TRUE(agent.waitForOutput("registered as")) << agent.output();
    agent.signal(signal);
    EXPECT_EQ(agent.waitForEnd(), 0) << agent.output();
  }
}

TEST(AgentFaults, AStoreThatCannotBeMadeEndsItWithOneLine) {
  const Kit kit;
  const auto file = kit.makeFile("file");
  ChildProcess agent(agentCommand({"--data", file + "/data"}));
  EXPECT_EQ(agent.waitForEnd(), 1);
  EXPECT_EQ(agent.output(), "VeldaneKRVAgent: " + file + "/data: Not a directory\n");
}

TEST(AgentFaults, AWrongCommandLineIsExplained) {
  const Kit kit;
  ChildProcess agent(agentCommand({"--contacts", "many"}));
  EXPECT_EQ(agent.waitForEnd(), 2);
  EXPECT_NE(agent.output().find("Usage:"), std::string::npos) << agent.output();
}

TEST(AgentFaults, NeedsNoDisplay) {
  const Kit kit;
  unsetenv("DISPLAY");
  const DevelopmentAgent agent;
  EXPECT_TRUE(answers(agent));
}
