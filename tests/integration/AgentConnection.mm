#include <gtest/gtest.h>

#import <Foundation/Foundation.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <filesystem>

#import "agent/AgentIdentity.h"
#import "agent/BVDataModelController.h"
#import "agent/ConnectionAttempt.h"
#import "agent/ConnectionTimeouts.h"
#import "agent/ResultDictionary.h"
#import "platform/gnustep/runtime/MethodReplacement.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/Strings.h"

namespace {

BVDataModelController *newController() {
  // In the pool before init, which raises in some of these tests.
  BVDataModelController *const controller = [[BVDataModelController alloc] autorelease];
  return [controller init];
}

/// The duration of something in seconds.
template <class Work>
double secondsFor(Work work) {
  const double start = detail::secondsNow();
  work();
  return detail::secondsNow() - start;
}

/// How long an attempt looks for an agent. Not the program's own constant, which may be wrong.
constexpr double kAttemptSeconds = 15.0;

/// Far less than an attempt, far more than an immediate reply takes on a busy machine.
constexpr double kAtOnceSeconds = 8;

}  // namespace

TEST(AgentConnection, InitFindsAPresentAgent) {
  AgentProcess agent;
  BVDataModelController *const controller = newController();
  EXPECT_TRUE([controller krvAgentConnectionExisting]);
  EXPECT_NE([controller krvAgentProxy], nil);
}

TEST(AgentConnection, TheGatePassesWithAPresentAgent) {
  AgentProcess agent;
  EXPECT_TRUE([newController() checkIfConnectionExists]);
}

TEST(AgentConnection, WithoutAnAgentInitTakesFifteenSecondsAndTheGateAnswersAtOnce) {
  BVDataModelController *controller = nil;
  const double initSeconds = secondsFor([&] { controller = newController(); });
  EXPECT_GE(initSeconds, kAttemptSeconds);
  EXPECT_LT(initSeconds, kAttemptSeconds + kAtOnceSeconds);
  EXPECT_FALSE([controller krvAgentConnectionExisting]);
  EXPECT_EQ([controller krvAgentProxy], nil);
  EXPECT_LT(secondsFor([&] { EXPECT_FALSE([controller checkIfConnectionExists]); }),
            kAtOnceSeconds);
}

TEST(AgentConnection, AnAgentThatRunsWithoutItsNameIsWaitedForByInitAndByTheGate) {
  AgentProcess agent({.name = "-"});
  BVDataModelController *controller = nil;
  EXPECT_GE(secondsFor([&] { controller = newController(); }), kAttemptSeconds);
  EXPECT_EQ([controller krvAgentProxy], nil);
  EXPECT_GE(secondsFor([&] { EXPECT_FALSE([controller checkIfConnectionExists]); }),
            kAttemptSeconds);
  EXPECT_EQ([controller getEmployeeAddressBook], nil);
}

TEST(AgentConnection, ANameThatIsRegisteredThreeSecondsLateIsFound) {
  AgentProcess agent({.registerAfterSeconds = 3});
  BVDataModelController *const controller = newController();
  EXPECT_TRUE([controller krvAgentConnectionExisting]);
  EXPECT_TRUE([controller checkIfConnectionExists]);
}

TEST(AgentConnection, TheFlagOutlivesTheAgentAndTheGateRestsOnTheProxy) {
  auto agent = std::make_unique<AgentProcess>();
  BVDataModelController *const controller = newController();
  agent.reset();
  AgentProcess successor({.name = "-"});
  EXPECT_FALSE([controller checkIfConnectionExists]);
  EXPECT_TRUE([controller krvAgentConnectionExisting]);
  EXPECT_EQ([controller krvAgentProxy], nil);
}

TEST(AgentConnection, AnIdentifierInOtherLetterCaseIsTheAgent) {
  AgentProcess agent({.identifier = "COM.Veldane.WAYFOLD.KrvAgent"});
  EXPECT_TRUE([newController() checkIfAppIsRunning]);
}

TEST(AgentConnection, AnotherApplicationIsNotTheAgent) {
  AgentProcess agent({.identifier = "com.veldane.wayfold.krvagent.helper"});
  EXPECT_FALSE([newController() checkIfAppIsRunning]);
}

TEST(AgentConnection, AnApplicationWithoutAnIdentifierIsNotTheAgent) {
  AgentProcess agent({.identifier = "-"});
  EXPECT_FALSE([newController() checkIfAppIsRunning]);
}

TEST(AgentConnection, TheGateIsClosedWhenOnlyTheNameIsThere) {
  AgentProcess stranger({.identifier = "org.example.other"});
  BVDataModelController *const controller = newController();
  EXPECT_TRUE([controller krvAgentConnectionExisting]);
  EXPECT_FALSE([controller checkIfConnectionExists]);
}

namespace {

/// Replaces a step of the platform's look-up for its lifetime: that of the vended object, or that
/// of the connection, which comes before it.
class ReplacedLookUp {
 public:
  using LookUp = id (*)(id, SEL, NSString *, NSString *);
  explicit ReplacedLookUp(LookUp lookUp,
                          SEL step = @selector(rootProxyForConnectionWithRegisteredName:host:))
      : method_(class_getClassMethod([NSConnection class], step)),
        former_(method_setImplementation(method_, reinterpret_cast<IMP>(lookUp))) {}
  ~ReplacedLookUp() { method_setImplementation(method_, former_); }

  LookUp former() const { return reinterpret_cast<LookUp>(former_); }

 private:
  Method method_;
  IMP former_;
};

}  // namespace

TEST(AgentConnection, APlatformExceptionDuringTheLookUpIsAFailedTry) {
  AgentProcess agent;
  // The first look-up of a process waits longer for the lock, and does not raise.
  ASSERT_NE([newController() krvAgentProxy], nil);
  // The platform raises when another process keeps the lock of its table of names.
  static std::string lock;
  lock =
      [NSTemporaryDirectory() fileSystemRepresentation] + std::string("/NSMessagePort/names/lock");
  ASSERT_TRUE(std::filesystem::create_directory(lock));
  static ReplacedLookUp::LookUp platforms;
  static int exceptions;
  exceptions = 0;
  // The platform's own, after whose first exception the other process gives the lock back.
  const ReplacedLookUp lookUp(
      [](id cls, SEL selector, NSString *name, NSString *host) -> id {
        @try {
          return platforms(cls, selector, name, host);
        } @catch (NSException *) {
          ++exceptions;
          std::filesystem::remove(lock);
          @throw;
        }
      },
      @selector(connectionWithRegisteredName:host:));
  platforms = lookUp.former();
  BVDataModelController *const controller = newController();
  EXPECT_EQ(exceptions, 1);
  EXPECT_TRUE([controller krvAgentConnectionExisting]);
  EXPECT_NE([controller krvAgentProxy], nil);
}

TEST(AgentConnection, WhatIsNoPlatformExceptionPassesOnToTheCaller) {
  const ReplacedLookUp lookUp([](id, SEL, NSString *, NSString *) -> id { @throw @"not one"; });
  NSString *caught = nil;
  @try {
    newController();
  } @catch (NSString *thrown) {
    caught = thrown;
  }
  EXPECT_EQ(text(caught), "not one");
}

TEST(AgentConnection, ExceptionsFromEveryLookUpEscapeNeitherInitNorTheGate) {
  AgentProcess agent;
  static int tries;
  tries = 0;
  const ReplacedLookUp lookUp([](id, SEL, NSString *, NSString *) -> id {
    ++tries;
    [NSException raise:NSGenericException format:@"as always"];
    return nil;
  });
  BVDataModelController *controller = nil;
  const double seconds = secondsFor([&] { controller = newController(); });
  EXPECT_GE(seconds, kAttemptSeconds);
  EXPECT_GT(tries, 10);
  EXPECT_FALSE([controller krvAgentConnectionExisting]);
  EXPECT_FALSE([controller checkIfConnectionExists]);
}

TEST(AgentConnection, APresentAgentCostsInitOneTryAndTheGateOneMore) {
  AgentProcess agent;
  static int tries;
  static id proxy;
  tries = 0;
  proxy = [NSConnection rootProxyForConnectionWithRegisteredName:@"KRVSyncAgent" host:nil];
  const ReplacedLookUp lookUp([](id, SEL, NSString *, NSString *) -> id {
    ++tries;
    return proxy;
  });
  BVDataModelController *const controller = newController();
  EXPECT_EQ(tries, 1);
  EXPECT_TRUE([controller checkIfConnectionExists]);
  EXPECT_EQ(tries, 2);
}

TEST(AgentConnection, TheGateLooksTheNameUpOnce) {
  AgentProcess agent;
  static int lookUps;
  static platform::ReplacedMethod<NSPort *(NSString *, NSString *)> platformPortForName;
  BVDataModelController *const controller = newController();
  platformPortForName.install(object_getClass([NSMessagePortNameServer sharedInstance]),
                              @selector(portForName:onHost:),
                              [](id server, SEL selector, NSString *name, NSString *host) {
                                // Not the platform's own, for its servers.
                                if ([name isEqualToString:@"KRVSyncAgent"]) ++lookUps;
                                return platformPortForName(server, selector, name, host);
                              });
  lookUps = 0;
  EXPECT_TRUE([controller checkIfConnectionExists]);
  EXPECT_EQ(lookUps, 1);
}

TEST(AgentConnection, TheGateFindsAnAgentThatWasStartedAgainAfterInit) {
  auto former = std::make_unique<AgentProcess>();
  BVDataModelController *const controller = newController();
  former.reset();
  AgentProcess agent;
  EXPECT_TRUE([controller checkIfConnectionExists]);
  [controller getEmployeeAddressBook];
  EXPECT_EQ([agent.calls() count], 1u);
}

TEST(AgentConnection, TheLookUpAsksForTheAgentsNameOnThisHost) {
  static NSString *name;
  static NSString *host = @"unset";
  const ReplacedLookUp lookUp([](id, SEL, NSString *askedName, NSString *askedHost) -> id {
    name = askedName;
    host = askedHost;
    return [[[NSProxy alloc] autorelease] self];
  });
  // The replacement returns no proxy, so only the look-up itself is tested.
  @try {
    newController();
  } @catch (id) {
  }
  EXPECT_EQ(text(name), "KRVSyncAgent");
  EXPECT_EQ(text(host), "(nil)");
}

TEST(AgentConnection, AStoppedAgentHoldsTheLookUpNoLongerThanTheAttempt) {
  AgentProcess agent;
  agent.process().signal(SIGSTOP);
  BVDataModelController *controller = nil;
  const double seconds = secondsFor([&] { controller = newController(); });
  EXPECT_EQ([controller krvAgentProxy], nil);
  EXPECT_GE(seconds, kAttemptSeconds);
  EXPECT_LT(seconds, kAttemptSeconds + kAtOnceSeconds);
  agent.process().signal(SIGCONT);
  EXPECT_TRUE([newController() checkIfConnectionExists]);
}

namespace {

constexpr NSTimeInterval kPlatformsDefault = 1e12;

constinit platform::ReplacedMethod<id(NSPort *, NSPort *)> platformInit;
constinit platform::ReplacedMethod<id()> platformRootProxy;

/// With the default time-outs, whatever those of other connections of the thread are.
id initWithOwnTimeouts(id connection, SEL selector, NSPort *receivePort, NSPort *sendPort) {
  connection = platformInit(connection, selector, receivePort, sendPort);
  agent::setTimeouts(connection, {kPlatformsDefault, kPlatformsDefault});
  return connection;
}

/// The longest time-out of a connection that was asked for its root proxy.
NSTimeInterval longestTimeout = 0;

id rootProxyNotingTimeouts(id connection, SEL selector) {
  longestTimeout =
      std::max({longestTimeout, [connection replyTimeout], [connection requestTimeout]});
  return platformRootProxy(connection, selector);
}

}  // namespace

TEST(AgentConnection, TheLookUpIsBoundedWhereAConnectionStartsWithTimeoutsOfItsOwn) {
  AgentProcess agent;
  platformInit.install([NSConnection class], @selector(initWithReceivePort:sendPort:),
                       initWithOwnTimeouts);
  platformRootProxy.install([NSConnection class], @selector(rootProxy), rootProxyNotingTimeouts);
  EXPECT_TRUE([newController() krvAgentConnectionExisting]);
  EXPECT_GT(longestTimeout, 0);
  EXPECT_LE(longestTimeout, agent::kConnectionDeadlineSeconds);
}

TEST(AgentConnection, AnAgentThatStopsBetweenInitAndGateHoldsNeitherForEver) {
  AgentProcess agent;
  BVDataModelController *const controller = newController();
  agent.process().signal(SIGSTOP);
  EXPECT_LT(secondsFor([&] { EXPECT_FALSE([controller checkIfConnectionExists]); }),
            kAttemptSeconds + kAtOnceSeconds);
  agent.process().signal(SIGCONT);
}

TEST(AgentConnection, OtherConnectionsKeepTheirOwnTimeouts) {
  AgentProcess agent;
  [[NSConnection defaultConnection] setReplyTimeout:77];
  [[NSConnection defaultConnection] setRequestTimeout:88];
  newController();
  EXPECT_EQ([[NSConnection defaultConnection] replyTimeout], 77);
  EXPECT_EQ([[NSConnection defaultConnection] requestTimeout], 88);
}

TEST(AgentConnection, AConnectionThatWasFoundLateWaitsAsLongAsAnyOther) {
  AgentProcess agent({.registerAfterSeconds = 0.5});
  NSConnection *const connection = agent::connectionOf([newController() krvAgentProxy]);
  EXPECT_EQ([connection replyTimeout], agent::kConnectionDeadlineSeconds);
  EXPECT_EQ([connection requestTimeout], agent::kConnectionDeadlineSeconds);
}

TEST(AgentConnection, AfterAReplyTheConnectionHasItsTimeoutsAgain) {
  AgentProcess agent;
  BVDataModelController *const controller = newController();
  NSConnection *const connection = agent::connectionOf([controller krvAgentProxy]);
  [controller getEmployeeAddressBook];
  EXPECT_EQ([connection replyTimeout], agent::kConnectionDeadlineSeconds);
  EXPECT_EQ([connection requestTimeout], agent::kConnectionDeadlineSeconds);
}

TEST(AgentConnection, TheActiveAccountIsWaitedForLongerThanAnAttemptLasts) {
  AgentProcess agent;
  agent.setScript(@{@"getActiveAccount" : @{@"delay" : @17, @"reply" : @"late"}});
  EXPECT_EQ(text([newController() getActiveAccount]), "late");
}

namespace {

int requestsSent(NSConnection *connection) {
  return [[[connection statistics] objectForKey:NSConnectionRequestsSent] intValue];
}

}  // namespace

TEST(AgentConnection, AnOperationIsOneMessage) {
  AgentProcess agent;
  agent.setScript(@{@"getEmployeeAddressBook" : @{@"nil" : @1}});
  BVDataModelController *const controller = newController();
  NSConnection *const connection = agent::connectionOf([controller krvAgentProxy]);
  const int before = requestsSent(connection);
  [controller getEmployeeAddressBook];
  EXPECT_EQ(requestsSent(connection), before + 1);
}

TEST(AgentConnection, TheTextsOfAnEntryAreTwoMessages) {
  AgentProcess agent;
  agent.answer(@"getUserInfo::", success(@{@"name" : @"Zoë", @"city" : @"", @"age" : @7}));
  BVDataModelController *const controller = newController();
  NSConnection *const connection = agent::connectionOf([controller krvAgentProxy]);
  id const user = [[controller getUserInfo:@"zoe@example.org":NO] objectForKey:@"value"];
  const int before = requestsSent(connection);
  NSDictionary *const copy =
      agent::localCopyOfTexts(@[ @"name", @"street", @"city", @"age" ], user);
  EXPECT_EQ(requestsSent(connection), before + 2);
  EXPECT_TRUE(([copy isEqual:@{@"name" : @"Zoë", @"city" : @"", @"age" : @"7"}])) << text(copy);
}

TEST(AgentConnection, ManyInstancesLeaveNoDescriptorBehind) {
  AgentProcess agent;
  const auto openDescriptors = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  const auto exchange = [] {
    @autoreleasepool {
      [newController() getEmployeeAddressBook];
    }
  };
  exchange();
  const auto before = openDescriptors();
  for (int i = 0; i < 200; ++i) exchange();
  EXPECT_EQ(openDescriptors(), before);
}
