#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <filesystem>

#include "tests/e2e/OwnProcesses.h"
#import "tests/e2e/RunningApplication.h"
#import "tests/e2e/VendedService.h"
#import "tests/e2e/WindowTest.h"
#include "tests/support/AgentProcess.h"

namespace fs = std::filesystem;

namespace {

constexpr int kRunsAlready = 3;

/// The output of a second start, which must end by itself.
std::string wordFor(const RunningApplication &first) {
  return "ContextMenuApp: running already, as process " + std::to_string(first.process().pid()) +
         ", which goes on\n";
}

struct SecondStart : OwnProcesses {
  AgentProcess agent;
  RunningApplication first;

  void SetUp() override { ASSERT_TRUE(first.waitUntilServing()) << first.process().output(); }

  void expectThatASecondOneEnds() {
    RunningApplication second(withoutLeakSearch());
    EXPECT_EQ(second.process().waitForEnd(), kRunsAlready);
    EXPECT_EQ(second.process().output(), wordFor(first));
  }
};

}  // namespace

TEST_F(SecondStart, BesideOneThatServesEndsWithOneLineAndTheFirstGoesOn) {
  expectThatASecondOneEnds();
  EXPECT_TRUE(first.waitUntilServing());
}

TEST_F(SecondStart, BesideOneThatDoesNotAnswerEndsWithOneLine) {
  first.process().signal(SIGSTOP);
  expectThatASecondOneEnds();
  first.process().signal(SIGCONT);
  EXPECT_TRUE(first.waitUntilServing());
}

TEST_F(SecondStart, BesideOneThatHasLostItsNamesAndHangsEndsWithOneLine) {
  first.process().signal(SIGSTOP);
  const fs::path ports =
      fs::path([NSTemporaryDirectory() fileSystemRepresentation]) / "NSMessagePort";
  fs::rename(ports, ports.string() + ".removed");
  expectThatASecondOneEnds();
  first.process().signal(SIGCONT);
  EXPECT_TRUE(first.waitUntilServing()) << first.process().output();
}

TEST_F(SecondStart, AfterTheFirstWasKilledServes) {
  first.process().signal(SIGKILL);
  first.process().waitForEnd();
  RunningApplication second;
  EXPECT_TRUE(second.waitUntilServing()) << second.process().output();
}

TEST_F(SecondStart, AfterTheFirstWasKilledButNotThePasteboardServerThatItStartedServes) {
  agent.answer(kFileLink, success(@"https://example.org/1"));
  [vendedService() copyLinkToClipboard:@"id-1":NO:NO];
  ASSERT_NE(clipboardReadByXclip(), "");
  first.process().signal(SIGKILL);
  first.process().waitForEnd();
  RunningApplication second;
  EXPECT_TRUE(second.waitUntilServing()) << second.process().output();
}

TEST_F(SecondStart, WithAnotherFolderForConnectionsIsAnotherApplication) {
  const std::string folder = newTemporaryFolder();
  fs::permissions(folder, fs::perms(0700));
  RunningApplication second({{"TEMP", folder}, {"TMP", folder}});
  EXPECT_TRUE(second.process().waitForOutput("Context Menu Application Launched"));
}
