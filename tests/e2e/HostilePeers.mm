// Every process of the same user can reach the plug-in's connection. Whatever it sends there, the
// application keeps running and serves the next valid call.

#include <gtest/gtest.h>

#include <list>
#include <random>
#include <utility>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#import "app/ContextMenuAppAppDelegate.h"
#import "tests/e2e/VendedService.h"
#import "tests/e2e/WindowTest.h"
#import "tests/e2e/WireMessage.h"
#include "tests/support/RawConnection.h"
#include "tests/support/Strings.h"

namespace {

const std::string kName = "ContextMenuPlugin";
/// The time-out of a valid call, from the start of its process to its end, during or after a
/// stranger's attack. No measure of speed: far longer than the call takes on a busy machine.
constexpr double kServedWithinSeconds = 20;

struct HostilePeers : WindowTest {
  // The platform deallocates a connection that a stranger's bytes end with its lock still taken
  // (see tools/sanitizers/tsan.supp); the thread sanitizer can remember no more than 64 such locks.
  HostilePeers()
      : WindowTest(RunningApplication::program(), {{"TSAN_OPTIONS", "detect_deadlocks=0"}}) {}

  void SetUp() override {
    WindowTest::SetUp();
    agent->answer(kFileLink, success(@"https://x/y"));
  }

  /// Whether a valid client gets its link in time.
  static bool serves() {
    const double begin = detail::secondsNow();
    ChildProcess copy({PLUGIN_CALL, "id-1"});
    return copy.waitForEnd() == 0 && detail::secondsNow() - begin < kServedWithinSeconds;
  }

  void expectUnharmed() {
    EXPECT_TRUE(serves());
    EXPECT_FALSE(application.process().hasEnded()) << application.process().output();
    // Only the links of valid calls were requested from the agent.
    for (NSString *operation in agent->operations()) {
      EXPECT_TRUE([operation hasPrefix:@"get"]) << text(operation);
    }
  }
};

struct Bytes {
  const char *what;
  std::string bytes;
};

void PrintTo(const Bytes &bytes, std::ostream *out) {
  *out << bytes.what;
}

struct HostileBytes : HostilePeers, testing::WithParamInterface<Bytes> {};

}  // namespace

TEST_P(HostileBytes, DoNoHarm) {
  const RawConnection stranger(kName);
  ASSERT_TRUE(stranger.isConnected());
  stranger.say(GetParam().bytes);
  expectUnharmed();
}

INSTANTIATE_TEST_SUITE_P(
    All, HostileBytes,
    testing::Values(
        Bytes{"AnotherProtocol", "GET / HTTP/1.0\r\n\r\n"},
        Bytes{"EmptyHead", introduction() + wireNumber(3) + wireNumber(0)},
        Bytes{"NoItems", introduction() + wireMessage(2, 0, "")},
        Bytes{"ManyItems", introduction() + wireMessage(0, 0x7FFFFFFF, "xxxx")},
        Bytes{"UnknownMessage", introduction() + wireMessage(77, 1, "xxxx")},
        Bytes{"NoIntroduction", wireMessage(2, 1, "xxxx")},
        Bytes{"GarbageQuestion", introduction() + wireMessage(2, 1, std::string(64, '\x7F'))},
        Bytes{"GarbageCall", introduction() + wireMessage(0, 1, std::string(64, '\x01'))},
        Bytes{"AReplyThatNobodyWaitsFor",
              introduction() + wireMessage(1, 1, std::string(64, '\0'))},
        Bytes{"AHugeLength", introduction() + wireNumber(3) + wireNumber(0x7FFFFFFF)},
        Bytes{"ALengthBelowZero", introduction() + wireNumber(3) + wireNumber(0xFFFFFFFF)}),
    [](const auto &info) { return info.param.what; });

TEST_F(HostilePeers, AMessageThatIsNeverCompletedHoldsNobodyUp) {
  const std::string whole = introduction() + wireMessage(0, 1, std::string(64, '\x01'));
  std::list<RawConnection> strangers;
  for (std::size_t length = 1; length < whole.size(); ++length) {
    const RawConnection &stranger = strangers.emplace_back(kName);
    ASSERT_TRUE(stranger.isConnected());
    stranger.say(whole.substr(0, length));
  }
  expectUnharmed();
}

TEST_F(HostilePeers, TenThousandRandomStreamsDoNoHarm) {
  std::mt19937 random(2026);
  for (int stream = 0; stream < 10'000; ++stream) {
    const RawConnection stranger(kName);
    ASSERT_TRUE(stranger.isConnected()) << stream;
    std::string bytes = random() % 2 == 0 ? introduction() : "";
    if (random() % 2 == 0) bytes += wireNumber(3) + wireNumber(random() % 512);
    const std::size_t length = random() % 256;
    while (bytes.size() < length) bytes += static_cast<char>(random());
    stranger.say(bytes);
    if (stream % 1000 == 999) ASSERT_TRUE(serves()) << application.process().output();
  }
  expectUnharmed();
}

TEST_F(HostilePeers, ThousandsOfIdleConnectionsAreBorneAndForgotten) {
  constexpr int kConnections = 3000;
  // The limit of this process; the application runs with its own.
  rlimit files = {};
  getrlimit(RLIMIT_NOFILE, &files);
  files.rlim_cur = std::min<rlim_t>(files.rlim_max, kConnections + 200);
  setrlimit(RLIMIT_NOFILE, &files);
  {
    std::list<RawConnection> idle;
    for (int i = 0; i < kConnections; ++i) {
      ASSERT_TRUE(idle.emplace_back(kName).isConnected()) << i;
    }
    EXPECT_FALSE(application.process().hasEnded()) << application.process().output();
  }
  expectUnharmed();
}

TEST_F(HostilePeers, UnderTheApplicationsOwnNameNothingCanBeSentButTheMenu) {
  id const vended = [NSConnection rootProxyForConnectionWithRegisteredName:@"ContextMenuApp"
                                                                      host:nil];
  ASSERT_NE(vended, nil);
  // Messages that the platform would forward to the delegate, or to the application itself. With
  // the types of the methods, because others would be refused in any case.
  const std::pair<SEL, const char *> messages[] = {
      {@selector(setContextMenuFlag:), "v@:c"}, {@selector(addressBookForShare), "@@:"},
      {@selector(updateAddressBook:), "v@:@"},  {@selector(windows), "@@:"},
      {@selector(setDelegate:), "v@:@"},        {@selector(hideMe), "v@:"},
      {@selector(CopyLink:), "v@:@"},           {@selector(terminate:), "v@:@"},
  };
  for (const auto &[message, types] : messages) {
    EXPECT_NE(sendOverWire(vended, message, types), "") << sel_getName(message);
  }
  expectUnharmed();
}

TEST_F(HostilePeers, WhatEveryObjectCanDoIsRefused) {
  id const vended = vendedService(false);
  ASSERT_NE(vended, nil);
  // With the types of the methods, because others would be refused in any case.
  const std::pair<SEL, const char *> messages[] = {
      {@selector(release), "v@:"},
      {@selector(retain), "@@:"},
      {@selector(autorelease), "@@:"},
      {@selector(dealloc), "v@:"},
      {@selector(retainCount), "Q@:"},
      {@selector(valueForKey:), "@@:@"},
      {@selector(target), "@@:"},
      {@selector(protocol), "@@:"},
      {@selector(initWithService:), "@@:@"},
  };
  for (const auto &[message, types] : messages) {
    EXPECT_EQ(sendOverWire(vended, message, types), text(NSInvalidArgumentException))
        << sel_getName(message);
  }
  expectUnharmed();
}

TEST_F(HostilePeers, AMessageThatIsNamedInAnArgumentIsNotPerformed) {
  id const vended = vendedService(false);
  NSInvocation *const message = [NSInvocation
      invocationWithMethodSignature:[NSMethodSignature signatureWithObjCTypes:"@@::"]];
  SEL named = @selector(dealloc);
  [message setTarget:vended];
  [message setSelector:@selector(performSelector:)];
  [message setArgument:&named atIndex:2];
  NSString *refusal = nil;
  @try {
    [vended forwardInvocation:message];
  } @catch (NSException *exception) {
    refusal = [exception name];
  }
  EXPECT_EQ(text(refusal), text(NSInvalidArgumentException));
  expectUnharmed();
}

TEST_F(HostilePeers, AnotherUserCannotReachTheConnection) {
  // Without search permission for the folder no process can connect to the sockets in it.
  const std::string socket = RawConnection::socketOf(kName);
  ASSERT_NE(socket, "");
  struct stat folder = {};
  ASSERT_EQ(stat(socket.substr(0, socket.rfind('/')).c_str(), &folder), 0);
  EXPECT_EQ(folder.st_uid, getuid());
  EXPECT_EQ(folder.st_mode & (S_IRWXG | S_IRWXO), 0u);
}
