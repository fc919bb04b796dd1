#include <gtest/gtest.h>

#import "agent/AgentIdentity.h"
#import "agent/BVDataModelController.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/HeldReply.h"
#include "tests/support/RepeatingTimer.h"
#include "tests/support/Strings.h"

// clang-format off: it takes the first anonymous argument for a part of the name.

namespace {

struct AgentOperations : testing::Test {
  AgentProcess agent;

  static BVDataModelController *controller() {
    return [[[BVDataModelController alloc] init] autorelease];
  }

  /// The only call that the agent got.
  void expectCall(NSString *operation, NSArray *arguments) {
    NSArray *const calls = agent.calls();
    ASSERT_EQ([calls count], 1u);
    NSDictionary *const call = [calls objectAtIndex:0];
    EXPECT_EQ(text([call objectForKey:@"operation"]), text(operation));
    EXPECT_TRUE([[call objectForKey:@"arguments"] isEqual:arguments]) << text(call);
  }
};

}  // namespace

TEST_F(AgentOperations, GetLinkForFileIsForwardedUnchanged) {
  [controller() getLinkForFile:@"id":YES:NO:@"5":YES];
  expectCall(@"getLinkForFile:::::", @[ @"id", @1, @0, @"5", @1 ]);
}

TEST_F(AgentOperations, GetLinkForFolderIsForwardedUnchanged) {
  [controller() getLinkForFolder:@"/a/b":NO:YES:@"-1":NO];
  expectCall(@"getLinkForFolder:::::", @[ @"/a/b", @0, @1, @"-1", @0 ]);
}

TEST_F(AgentOperations, SendFileIsForwardedUnchanged) {
  [controller() sendFile:@"id":YES:NO:@"1":@"a@b,c@d":@"s%20x":@"m":YES:NO];
  expectCall(@"sendFile:::::::::", @[ @"id", @1, @0, @"1", @"a@b,c@d", @"s%20x", @"m", @1, @0 ]);
}

TEST_F(AgentOperations, SendFolderIsForwardedUnchanged) {
  [controller() sendFolder:@"id":NO:YES:@"-1":@"a@b":@"":@"m\nn":NO:YES];
  expectCall(@"sendFolder:::::::::", @[ @"id", @0, @1, @"-1", @"a@b", @"", @"m\nn", @0, @1 ]);
}

TEST_F(AgentOperations, GrantAccessIsForwardedUnchanged) {
  [controller() grantAccess:@"a@b":@"id":YES:NO:NO:YES:YES:NO:@"méssage"];
  expectCall(@"grantAccess:::::::::", @[ @"a@b", @"id", @1, @0, @0, @1, @1, @0, @"méssage" ]);
}

TEST_F(AgentOperations, RevokeAccessIsForwardedUnchanged) {
  [controller() revokeAccess:@"a@b":@"id":YES];
  expectCall(@"revokeAccess:::", @[ @"a@b", @"id", @1 ]);
}

TEST_F(AgentOperations, GetAccessIsForwardedUnchanged) {
  [controller() getAccess:@"id":YES];
  expectCall(@"getAccess::", @[ @"id", @1 ]);
}

TEST_F(AgentOperations, GetUserInfoIsForwardedUnchanged) {
  [controller() getUserInfo:@"a@b":NO];
  expectCall(@"getUserInfo::", @[ @"a@b", @0 ]);
}

TEST_F(AgentOperations, GetEmployeeAddressBookIsForwarded) {
  [controller() getEmployeeAddressBook];
  expectCall(@"getEmployeeAddressBook", @[]);
}

TEST_F(AgentOperations, GetAddressBookIsForwardedUnchanged) {
  [controller() getAddressBook:@"query"];
  expectCall(@"getAddressBook:", @[ @"query" ]);
}

TEST_F(AgentOperations, GetActiveAccountIsForwarded) {
  agent.answer(@"getActiveAccount", @"ada@example.org");
  EXPECT_EQ(text([controller() getActiveAccount]), "ada@example.org");
  expectCall(@"getActiveAccount", @[]);
}

TEST_F(AgentOperations, HomeDirectoryInfoIsAskedOfTheProxyOnly) {
  BVDataModelController *const client = controller();
  EXPECT_FALSE([client respondsToSelector:@selector(getHomeDirectoryInfo)]);
  agent.answer(@"getHomeDirectoryInfo", @{@"homefolder" : @"home-7"});
  EXPECT_EQ(text([[[client krvAgentProxy] getHomeDirectoryInfo] objectForKey:@"homefolder"]),
            "home-7");
}

TEST_F(AgentOperations, NilArgumentsArriveAsNil) {
  [controller() getLinkForFile:nil:YES:NO:nil:YES];
  NSNull *const null = [NSNull null];
  expectCall(@"getLinkForFile:::::", @[ null, @1, @0, null, @1 ]);
}

TEST_F(AgentOperations, AReplyIsHandedOnWithItsThreeKeys) {
  NSDictionary *const reply = @{@"error" : @7, @"value" : @"v", @"errorMessage" : @"why"};
  agent.answer(@"getAccess::", reply);
  EXPECT_TRUE([[controller() getAccess:@"id":YES] isEqual:reply]);
}

TEST_F(AgentOperations, AnEmptyReplyStaysEmpty) {
  NSDictionary *const reply = [controller() getAccess:@"id":YES];
  EXPECT_NE(reply, nil);
  EXPECT_EQ([reply count], 0u);
}

TEST_F(AgentOperations, ANilReplyIsNil) {
  agent.setScript(@{@"getAccess::" : @{@"nil" : @1}});
  EXPECT_EQ([controller() getAccess:@"id":YES], nil);
}

TEST_F(AgentOperations, AReplyThatIsNoDictionaryIsNil) {
  for (id reply in @[ @"text", @42, @[ @"error" ] ]) {
    agent.answer(@"getAccess::", reply);
    EXPECT_EQ([controller() getAccess:@"id":YES], nil) << text(reply);
  }
}

TEST_F(AgentOperations, AnAgentKilledDuringTheCallGivesNil) {
  const HeldReply hold;
  agent.setScript(@{@"getAccess::" : hold.entry(@{@"reply" : success(@"never")})});
  const RepeatingTimer kill(NSConnectionReplyMode, [&] {
    if ([agent.calls() count] == 1) agent.process().signal(SIGKILL);
  });
  EXPECT_EQ([controller() getAccess:@"id":YES], nil);
  EXPECT_TRUE(waitFor([&] { return agent.process().hasEnded(); }));
}

TEST_F(AgentOperations, AnAgentThatDiesWhileItsReplyIsReadGivesNil) {
  agent.setScript(@{@"getAccess::" : @{@"die" : @"whenRead"}});
  EXPECT_EQ([controller() getAccess:@"id":YES], nil);
}

TEST_F(AgentOperations, AnAgentThatRaisesGivesNil) {
  agent.setScript(@{@"getAccess::" : @{@"raise" : @"SomeException"}});
  EXPECT_EQ([controller() getAccess:@"id":YES], nil);
}

TEST_F(AgentOperations, AReplyIsWaitedForLongerThanAConnectionAttempt) {
  agent.setScript(@{@"getAccess::" : @{@"delay" : @17, @"reply" : success(@"late")}});
  EXPECT_EQ(text([[controller() getAccess:@"id":YES] objectForKey:@"value"]), "late");
}

TEST_F(AgentOperations, AClosedGateSendsNothingAndAnswersNil) {
  // The name is registered, but the agent's application is not running.
  AgentProcess::Options stranger;
  stranger.identifier = "org.example.other";
  agent.process().signal(SIGKILL);
  agent.process().waitForEnd();
  AgentProcess other(stranger);
  BVDataModelController *const client = controller();
  EXPECT_EQ([client getLinkForFile:@"id":YES:NO:@"-1":YES], nil);
  EXPECT_EQ([client getLinkForFolder:@"id":YES:NO:@"-1":YES], nil);
  EXPECT_EQ([client sendFile:@"id":YES:NO:@"-1":@"a":@"s":@"m":YES:NO], nil);
  EXPECT_EQ([client sendFolder:@"id":YES:NO:@"-1":@"a":@"s":@"m":YES:NO], nil);
  EXPECT_EQ([client grantAccess:@"a":@"id":YES:YES:YES:YES:YES:YES:@"m"], nil);
  EXPECT_EQ([client revokeAccess:@"a":@"id":YES], nil);
  EXPECT_EQ([client getAccess:@"id":YES], nil);
  EXPECT_EQ([client getUserInfo:@"a":NO], nil);
  EXPECT_EQ([client getEmployeeAddressBook], nil);
  EXPECT_EQ([client getAddressBook:@"q"], nil);
  EXPECT_EQ([client getActiveAccount], nil);
  EXPECT_EQ([other.calls() count], 0u);
}

TEST_F(AgentOperations, ARestartedAgentIsFoundByTheNextOperation) {
  [controller() getAccess:@"id":YES];
  agent.process().signal(SIGKILL);
  agent.process().waitForEnd();
  AgentProcess successor;
  successor.answer(@"getAccess::", success(@"new"));
  EXPECT_EQ(text([[controller() getAccess:@"id":YES] objectForKey:@"value"]), "new");
}

TEST_F(AgentOperations, StringsInEveryScriptArriveAsTheyAre) {
  NSString *const odd = @"ä漢😀 العربية \n \"quoted\" %@%n";
  agent.answer(@"getAccess::", success(odd));
  EXPECT_EQ(text([[controller() getAccess:odd:YES] objectForKey:@"value"]), text(odd));
  expectCall(@"getAccess::", @[ odd, @1 ]);
}
