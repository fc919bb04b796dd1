#include <gtest/gtest.h>

#import "agent/KRVProxy.h"
#include "tests/e2e/OwnProcesses.h"
#import "tests/e2e/WindowTest.h"

// What the tests that share an application rely on.

namespace {

/// Counts the existing instances.
struct Counted : SharedSystem {
  static inline int alive = 0;
  const int number;
  explicit Counted(int itsNumber) : number(itsNumber) { ++alive; }
  ~Counted() override { --alive; }
};

int numberOf(const std::string &purpose, int number) {
  return SharedSystem::runningFor<Counted>(purpose, number).number;
}

struct SharedSystems : OwnProcesses {
  void TearDown() override { SharedSystem::end(); }
};

}  // namespace

TEST_F(SharedSystems, OneServesAllWhoWantTheSame) {
  EXPECT_EQ(numberOf("a", 1), 1);
  EXPECT_EQ(numberOf("a", 2), 1);
  EXPECT_EQ(Counted::alive, 1);
}

TEST_F(SharedSystems, WhoeverWantsAnotherEndsTheOneBefore) {
  EXPECT_EQ(numberOf("a", 1), 1);
  EXPECT_EQ(numberOf("b", 2), 2);
  EXPECT_EQ(Counted::alive, 1);
  EXPECT_EQ(numberOf("a", 3), 3);
}

TEST_F(SharedSystems, WhoeverStartsItsOwnProcessesEndsTheOneBefore) {
  EXPECT_EQ(numberOf("a", 1), 1);
  const struct : OwnProcesses {
    void TestBody() override {}
  } next;
  EXPECT_EQ(Counted::alive, 0);
}

TEST_F(SharedSystems, AScriptOfTheAgentBeginsItsListsAnew) {
  const AgentProcess agent;
  NSDictionary *const script = @{@"getAccess::" : @[ @{@"nil" : @1}, @{@"reply" : success(@"2")} ]};
  id const proxy = [NSConnection rootProxyForConnectionWithRegisteredName:@"KRVSyncAgent" host:nil];
  for (int test = 0; test < 2; ++test) {
    agent.setScript(script);
    EXPECT_EQ([proxy getAccess:@"id":NO], nil) << test;
    EXPECT_NE([proxy getAccess:@"id":NO], nil) << test;
  }
}

TEST_F(SharedSystems, CallsOfAnEarlierTestAreNotToldToTheNext) {
  const AgentProcess agent;
  id const proxy = [NSConnection rootProxyForConnectionWithRegisteredName:@"KRVSyncAgent" host:nil];
  [proxy getAccess:@"former":NO];
  const std::size_t record = agent.record();
  EXPECT_EQ([agent.callsSince(record) count], 0u);
  [proxy getAccess:@"next":NO];
  ASSERT_EQ([agent.callsSince(record) count], 1u);
  EXPECT_EQ([agent.calls() count], 2u);
}
