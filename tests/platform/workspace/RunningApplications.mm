#include <gtest/gtest.h>

#import <AppKit/AppKit.h>

#include <csignal>

#include "tests/support/AgentProcess.h"
#include "tests/support/Strings.h"

namespace {

NSArray *running() {
  return [[NSWorkspace sharedWorkspace] runningApplications];
}

NSRunningApplication *applicationOf(pid_t process) {
  for (NSRunningApplication *application in running()) {
    if ([application processIdentifier] == process) return application;
  }
  return nil;
}

AgentProcess::Options identifiedAs(const std::string &identifier) {
  AgentProcess::Options options;
  options.identifier = identifier;
  options.name = "-";
  return options;
}

}  // namespace

TEST(RunningApplications, OneIsKnownByItsProcessItsBundleAndItsIdentifier) {
  AgentProcess agent(identifiedAs("org.example.one"));
  NSRunningApplication *const application = applicationOf(agent.process().pid());
  ASSERT_NE(application, nil);
  EXPECT_EQ(text([application bundleIdentifier]), "org.example.one");
  EXPECT_EQ(text([application localizedName]), "Agent");
  EXPECT_TRUE([[[application bundleURL] path] hasSuffix:@"/Agent.app"]);
}

TEST(RunningApplications, OneThatStartsAfterALookIsSeenByTheNext) {
  AgentProcess first(identifiedAs("org.example.first"));
  EXPECT_NE(applicationOf(first.process().pid()), nil);
  AgentProcess second(identifiedAs("org.example.second"));
  EXPECT_NE(applicationOf(second.process().pid()), nil);
  EXPECT_NE(applicationOf(first.process().pid()), nil);
}

TEST(RunningApplications, OneThatEndsIsSeenNoMore) {
  AgentProcess agent(identifiedAs("org.example.one"));
  EXPECT_NE(applicationOf(agent.process().pid()), nil);
  agent.process().signal(SIGKILL);
  agent.process().waitForEnd();
  EXPECT_EQ(applicationOf(agent.process().pid()), nil);
}

TEST(RunningApplications, EachIsListedOnceHoweverTheListIsRead) {
  AgentProcess first(identifiedAs("org.example.first"));
  applicationOf(first.process().pid());
  AgentProcess second(identifiedAs("org.example.second"));
  NSArray *const list = running();
  NSMutableArray *const enumerated = [NSMutableArray array];
  for (NSRunningApplication *application in list) [enumerated addObject:application];
  EXPECT_EQ([enumerated count], [list count]);
  EXPECT_EQ([[NSSet setWithArray:enumerated] count], [list count]);
  for (NSUInteger i = 0; i < [list count]; ++i) {
    EXPECT_EQ([list objectAtIndex:i], [enumerated objectAtIndex:i]);
  }
}

TEST(RunningApplications, AnEmptyIdentifierIsNoIdentifier) {
  AgentProcess agent(identifiedAs(""));
  EXPECT_EQ([[applicationOf(agent.process().pid()) bundleIdentifier] length], 0u);
}
