// What the development agent survives, and how it begins and ends.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#import "tests/devkit/DevelopmentAgent.h"
#import "tests/support/Strings.h"

namespace {

/// A stranger who speaks to the agent's socket in bytes of his own.
class Stranger {
 public:
  explicit Stranger(const DevelopmentAgent &) : socket_(socket(AF_UNIX, SOCK_STREAM, 0)) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const auto path = agentSocket();
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    connected_ = connect(socket_, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0;
  }
  ~Stranger() { close(socket_); }
  Stranger(const Stranger &) = delete;
  Stranger &operator=(const Stranger &) = delete;

  bool isConnected() const { return connected_; }
  void say(const std::string &bytes) const { write(socket_, bytes.data(), bytes.size()); }

 private:
  /// This process owns a socket beside the agent's; the agent's is the one of another process.
  static std::string agentSocket() {
    namespace fs = std::filesystem;
    const std::string own = std::to_string(getpid()) + ".";
    for (const auto &entry : fs::recursive_directory_iterator(std::getenv("TEMP")))
      if (entry.is_socket() && !entry.path().filename().string().starts_with(own))
        return entry.path();
    return "";
  }

  int socket_;
  bool connected_ = false;
};

std::string number(unsigned value) {
  return {static_cast<char>(value >> 24), static_cast<char>(value >> 16),
          static_cast<char>(value >> 8), static_cast<char>(value)};
}

/// The message that introduces a sender, as the platform frames it.
std::string introduction() {
  const std::string port = std::string("\0", 1) + "/nowhere" + std::string("\0", 1);
  return number(1) + number(static_cast<unsigned>(port.size())) + port;
}

std::string message(unsigned identifier, unsigned items, const std::string &content) {
  return number(3) + number(static_cast<unsigned>(8 + content.size())) + number(identifier) +
         number(items) + content;
}

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
  const Stranger stranger(agent);
  ASSERT_TRUE(stranger.isConnected());
  stranger.say(GetParam().bytes);
  EXPECT_TRUE(answers(agent));
  EXPECT_FALSE(agent.process().hasEnded()) << agent.process().output();
}

INSTANTIATE_TEST_SUITE_P(
    All, BadBytes,
    testing::Values(Bytes{"AnotherProtocol", "GET / HTTP/1.0\r\n\r\n"},
                    Bytes{"EmptyHead", introduction() + number(3) + number(0)},
                    Bytes{"NoItems", introduction() + message(2, 0, "")},
                    Bytes{"UnknownMessage", introduction() + message(77, 1, "xxxx")},
                    Bytes{"NoIntroduction", message(2, 1, "xxxx")},
                    Bytes{"GarbageQuestion",
                          introduction() + message(2, 1, std::string(64, '\x7F'))},
                    Bytes{"GarbageCall", introduction() + message(0, 1, std::string(64, '\x01'))}),
    [](const auto &info) { return info.param.what; });

TEST(AgentFaults, ArgumentsOfEveryKindAreAnswered) {
  const Kit kit;
  const DevelopmentAgent agent;
  NSString *const huge = [@"" stringByPaddingToLength:4'000'000 withString:@"写" startingAtIndex:0];
  const unichar half = 0xD800;
  // The platform makes no such string at once, but puts one together.
  NSString *const broken = [NSMutableString stringWithFormat:@"%C", half];
  // The last ones stay in this process; the agent gets stand-ins for them.
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
