#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "tests/e2e/OwnProcesses.h"
#import "tests/e2e/RunningApplication.h"
#import "tests/e2e/VendedService.h"
#import "tests/e2e/WindowTest.h"
#include "tests/support/RawConnection.h"
#include "tests/support/Strings.h"

// Cleaners of temporary folders remove the files of names and sockets while their owners run.

namespace fs = std::filesystem;

namespace {

NSString *const kServiceName = @"ContextMenuPlugin";
NSString *const kApplicationName = @"ContextMenuApp";
NSString *const kClipboardServersName = @"GNUstepGSPasteboardServer";
const std::string kTaken = "The name \"ContextMenuPlugin\" was lost and is another program's now";

fs::path fileOfName(NSString *name,
                    const fs::path &folder = [NSTemporaryDirectory() fileSystemRepresentation]) {
  NSString *const encoded =
      [[name dataUsingEncoding:NSUTF8StringEncoding] base64EncodedStringWithOptions:0];
  return folder / "NSMessagePort" / "names" / [encoded UTF8String];
}

fs::path portFolders() {
  return fileOfName(kServiceName).parent_path().parent_path();
}

fs::path socketOfName(NSString *name) {
  std::string path;
  std::getline(std::ifstream(fileOfName(name)) >> std::ws, path);
  return path;
}

/// In one step, so that no other process sees a partly removed folder.
void removeAtOnce(const fs::path &folder) {
  const std::string away = folder.string() + ".removed";
  fs::rename(folder, away);
  fs::remove_all(away);
}

/// Whether another process, which has no cached names, reaches the application.
bool isReached(const ChildProcess::Environment &environment = {}) {
  ChildProcess client({CONTEXTMENU, "--timeout", "5", "status"}, environment);
  return client.waitForEnd() == 0;
}

bool becomesReachable() {
  return waitFor([] { return isReached(); });
}

/// Whether the application still replies to a client that was connected before.
bool answers(id service) {
  [[service connectionForProxy] setReplyTimeout:kWaitTimeoutSeconds];
  @try {
    return [service respondsToSelector:@selector(copyLinkToClipboard:::)];
  } @catch (NSException *exception) {
    return false;
  }
}

/// The application at rest, with an agent.
struct RestoredNames : WindowTest {
  RestoredNames() : WindowTest(RunningApplication::program(), {}, Application::OfItsOwn) {}

  long repairs(NSString *name) const {
    return linesInLog("The name \"" + text(name) + "\" was lost and is registered again");
  }
  bool isRepaired(NSString *name) {
    return waitFor([&] { return repairs(name) == 1; });
  }
};

/// The application with its folder for connections in one in which every user may create files.
struct RestoredFolder : OwnProcesses {
  const fs::path base = newTemporaryFolder();
  const fs::path own = base / ("GNUstepSecure" + std::to_string(geteuid()));
  const ChildProcess::Environment environment = {{"TEMP", base}, {"TMP", base}};
  std::unique_ptr<AgentProcess> agent;
  std::unique_ptr<RunningApplication> application;

  RestoredFolder() {
    fs::permissions(base, fs::perms(01777));
    agent = std::make_unique<AgentProcess>(AgentProcess::Options{.environment = environment});
    application = std::make_unique<RunningApplication>(environment);
  }
  void SetUp() override {
    ASSERT_TRUE(isServed()) << application->process().output();
    // The application also starts a server for the clipboard, which makes that folder again too.
    ASSERT_TRUE(waitFor([&] { return fs::exists(fileOfName(kClipboardServersName, own)); }));
  }

  bool isServed() const {
    return waitFor([&] { return isReached(environment); });
  }
};

}  // namespace

TEST_F(RestoredNames, TheServicesRemovedNameIsRegisteredAgain) {
  ASSERT_TRUE(fs::remove(fileOfName(kServiceName)));
  EXPECT_TRUE(becomesReachable()) << output();
  EXPECT_EQ(repairs(kServiceName), 1);
  EXPECT_TRUE(serves());
}

TEST_F(RestoredNames, TheApplicationsOwnRemovedNameIsRegisteredAgain) {
  ASSERT_TRUE(fs::remove(fileOfName(kApplicationName)));
  EXPECT_TRUE(isRepaired(kApplicationName)) << output();
  EXPECT_NE([NSConnection connectionWithRegisteredName:kApplicationName host:nil], nil);
}

TEST_F(RestoredNames, ANameThatWasEmptiedIsWrittenAgain) {
  fs::resize_file(fileOfName(kServiceName), 0);
  EXPECT_TRUE(becomesReachable()) << output();
  EXPECT_TRUE(serves());
}

TEST_F(RestoredNames, ANameThatWasMadeReadableForOthersIsTheUsersAloneAgain) {
  fs::permissions(fileOfName(kServiceName), fs::perms(0644));
  EXPECT_TRUE(becomesReachable()) << output();
  EXPECT_EQ(fs::status(fileOfName(kServiceName)).permissions(), fs::perms(0600));
}

TEST_F(RestoredNames, ARemovedSocketIsBoundAgain) {
  ASSERT_TRUE(fs::remove(socketOfName(kServiceName)));
  EXPECT_TRUE(becomesReachable()) << output();
  EXPECT_TRUE(serves());
}

TEST_F(RestoredNames, AClientThatWasConnectedBeforeTheSocketWasRemovedIsStillServed) {
  id<ContextMenuService> const service = vendedService();
  [service copyLinkToClipboard:@"id-1":NO:NO];
  ASSERT_TRUE(fs::remove(socketOfName(kServiceName)));
  ASSERT_TRUE(isRepaired(kServiceName)) << output();
  ASSERT_TRUE(answers(service)) << output();
  agent->answer(kFileLink, success(@"https://x/still-served"));
  [service copyLinkToClipboard:@"id-1":NO:NO];
  EXPECT_EQ(clipboardReadByXclip(), "https://x/still-served");
}

TEST_F(RestoredNames, AProgramThatConnectsAsTheSocketIsRemovedDelaysNobody) {
  id<ContextMenuService> const service = vendedService();
  // Which of the two the application is notified of first varies with each turn of its run loop.
  for (int i = 1; i <= 12; ++i) {
    application.process().signal(SIGSTOP);
    const RawConnection program(text(kServiceName));
    ASSERT_TRUE(program.isConnected());
    ASSERT_TRUE(fs::remove(socketOfName(kServiceName)));
    application.process().signal(SIGCONT);
    ASSERT_TRUE(waitFor([&] { return repairs(kServiceName) == i; })) << output();
    ASSERT_TRUE(answers(service)) << i;
  }
}

TEST_F(RestoredNames, TheFolderOfNamesIsMadeAgain) {
  removeAtOnce(portFolders() / "names");
  EXPECT_TRUE(becomesReachable()) << output();
  EXPECT_TRUE(isRepaired(kApplicationName));
  EXPECT_TRUE(serves());
}

TEST_F(RestoredNames, TheFolderOfSocketsIsMadeAgain) {
  removeAtOnce(portFolders() / "ports");
  EXPECT_TRUE(becomesReachable()) << output();
  EXPECT_TRUE(serves());
}

TEST_F(RestoredNames, OutliveSomebodyWhoRemovesTheirFoldersFileByFile) {
  // A program that finds new files in a folder that it has just emptied gives up, as rm does.
  std::error_code notEmptyAgain;
  fs::remove_all(portFolders(), notEmptyAgain);
  EXPECT_TRUE(becomesReachable()) << output();
  // The name and its socket are removed one after the other, and may be repaired in between.
  EXPECT_TRUE(waitFor([&] { return repairs(kApplicationName) >= 1; }));
}

TEST_F(RestoredNames, TheFoldersOfNamesAndPortsAreMadeAgain) {
  removeAtOnce(portFolders());
  EXPECT_TRUE(becomesReachable()) << output();
  EXPECT_TRUE(isRepaired(kApplicationName));
  EXPECT_TRUE(serves());
}

TEST_F(RestoredNames, FoldersThatWereMovedAwayAndMadeAnewByAnotherProgramGetNamesAndSockets) {
  const fs::path folders = portFolders();
  fs::rename(folders, folders.string() + ".old");
  for (const char *name : {"names", "ports"}) {
    std::error_code madeAlready;
    fs::create_directories(folders / name, madeAlready);
    fs::permissions(folders / name, fs::perms(0700));
  }
  EXPECT_TRUE(becomesReachable()) << output();
  EXPECT_TRUE(serves());
}

TEST_F(RestoredNames, AreRegisteredAgainWhileAnAlertWaitsForTheUser) {
  agent->answer(kFileLink, refusal(1, @"no"));
  ASSERT_TRUE(open(SendCall()));
  ASSERT_NE(onlyWindow(SendCall().name).number, "");
  pressKeys({"Return"});
  ASSERT_TRUE(waitForWindows(2));
  ASSERT_TRUE(fs::remove(fileOfName(kServiceName)));
  EXPECT_TRUE(isRepaired(kServiceName)) << output();
}

TEST_F(RestoredNames, AreRegisteredAgainEachTimeTheyAreRemoved) {
  for (int i = 1; i <= 3; ++i) {
    ASSERT_TRUE(fs::remove(fileOfName(kServiceName)));
    ASSERT_TRUE(waitFor([&] { return repairs(kServiceName) == i; })) << output();
  }
  EXPECT_TRUE(isReached());
}

TEST_F(RestoredNames, ANameThatAnotherProgramHasTakenIsRegisteredAgainWhenThatGivesItBack) {
  application.process().signal(SIGSTOP);
  ASSERT_TRUE(fs::remove(fileOfName(kServiceName)));
  NSConnection *const other = [[[NSConnection alloc] init] autorelease];
  ASSERT_TRUE([other registerName:kServiceName]);
  application.process().signal(SIGCONT);
  EXPECT_TRUE(waitFor([&] { return linesInLog(kTaken) == 1; })) << output();
  ASSERT_TRUE([other registerName:nil]);
  EXPECT_TRUE(isRepaired(kServiceName)) << output();
  EXPECT_TRUE(isReached());
}

TEST_F(RestoredNames, ANameThatAnotherProgramHasTakenIsRegisteredAgainWhenThatIsKilled) {
  application.process().signal(SIGSTOP);
  ASSERT_TRUE(fs::remove(fileOfName(kServiceName)));
  AgentProcess other({.identifier = "org.example.other", .name = text(kServiceName)});
  application.process().signal(SIGCONT);
  ASSERT_TRUE(waitFor([&] { return linesInLog(kTaken) == 1; })) << output();
  other.process().signal(SIGKILL);
  EXPECT_TRUE(isRepaired(kServiceName)) << output();
  EXPECT_TRUE(isReached());
}

TEST_F(RestoredNames, AreGivenBackAtTheEnd) {
  ASSERT_TRUE(fs::remove(fileOfName(kServiceName)));
  ASSERT_TRUE(isRepaired(kServiceName)) << output();
  const fs::path socket = socketOfName(kServiceName);
  ASSERT_TRUE(fs::exists(socket));
  outputOf({"/bin/kill", "-TERM", std::to_string(application.process().pid())});
  application.process().waitForEnd();
  EXPECT_EQ([[NSMessagePortNameServer sharedInstance] portForName:kServiceName onHost:nil], nil);
}

TEST_F(RestoredFolder, IsMadeAgainWithAllThatWasInIt) {
  removeAtOnce(own);
  EXPECT_TRUE(isServed()) << application->process().output();
}

TEST_F(RestoredFolder, IsNotMadeAgainBehindALinkButAfterIt) {
  const fs::path elsewhere = newTemporaryFolder();
  // Both create the missing folder again.
  for (const ChildProcess *process : {&application->process(), &agent->process()}) {
    process->signal(SIGSTOP);
  }
  removeAtOnce(own);
  fs::create_directory_symlink(elsewhere, own);
  for (const ChildProcess *process : {&application->process(), &agent->process()}) {
    process->signal(SIGCONT);
  }
  EXPECT_TRUE(application->process().waitForOutput(
      "is lost and cannot be registered again now: the temporary folder \"" + own.string() +
      "\" is a symbolic link\n"));
  EXPECT_TRUE(fs::is_empty(elsewhere)) << outputOf({"/usr/bin/find", elsewhere});
  fs::remove(own);
  EXPECT_TRUE(isServed()) << application->process().output();
}
