// The plug-in client as a program, against a stub of the application in this process.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "devkit/store/Store.h"
#import "tests/devkit/DevelopmentAgent.h"
#import "tests/devkit/StubApplication.h"
#import "tests/support/Pump.h"
#import "tests/support/Strings.h"

namespace {

class Client : public testing::Test {
 protected:
  /// Runs the client to its end while this process serves calls; returns its exit code and output.
  static std::string run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), CONTEXTMENU);
    ChildProcess client(arguments);
    pumpUntil([&] { return client.hasEnded(); });
    return std::to_string(client.waitForEnd()) + " " + client.output();
  }

  /// The item's id as the store has it.
  std::string id(const std::string &path) const {
    return devkit::Store(kit_.dataFolder(), kit_.syncedFolder()).items.byPath(path)->id;
  }

  const Kit kit_;
  const std::string file_ = kit_.makeFile("MyDocs/Pläne 写.txt");
  const std::string folder_ = kit_.makeFolder("MyDocs/Plans");
};

class WithApplication : public Client {
 protected:
  void TearDown() override { [application_ release]; }

  std::string call() const { return text([[application_ calls] componentsJoinedByString:@" "]); }

  StubApplication *const application_ = [[StubApplication alloc] init];
};

}  // namespace

TEST_F(WithApplication, CopiesALinkToAFile) {
  EXPECT_EQ(run({"copy-link", file_}), "0 ");
  EXPECT_EQ(call(), "copy|" + id(file_) + "|0|0");
}

TEST_F(WithApplication, CopiesALinkToAFolder) {
  EXPECT_EQ(run({"copy-link", folder_ + "/"}), "0 ");
  EXPECT_EQ(call(), "copy|" + id(folder_) + "|1|0");
}

TEST_F(WithApplication, OpensTheSendWindowOnEitherTab) {
  EXPECT_EQ(run({"send", file_}), "0 ");
  EXPECT_EQ(run({"send", folder_, "--tab", "1"}), "0 ");
  EXPECT_EQ(call(),
            "send|" + id(file_) + "|Pläne 写.txt|0|0|0|1 send|" + id(folder_) + "|Plans|0|1|1|1");
}

TEST_F(WithApplication, OpensTheShareWindowOnEitherTab) {
  EXPECT_EQ(run({"share", folder_}), "0 ");
  EXPECT_EQ(run({"--tab", "1", "share", folder_}), "0 ");
  EXPECT_EQ(call(), "share|" + id(folder_) + "|Plans|0|0|1 share|" + id(folder_) + "|Plans|0|1|1");
}

TEST_F(WithApplication, AsksTheAgentForTheIdOfTheHomeFolder) {
  const DevelopmentAgent agent;
  EXPECT_EQ(run({"send", kit_.path("MyDocs")}), "0 ");
  EXPECT_EQ(call(), "send|" + id(kit_.path("MyDocs")) + "|MyDocs|1|1|0|1");
}

TEST_F(WithApplication, HasNoIdForTheHomeFolderWithoutTheAgent) {
  EXPECT_EQ(run({"send", kit_.path("MyDocs")}),
            "5 contextmenu: the agent is not running, and only it knows the id of MyDocs\n");
}

TEST_F(WithApplication, TakesAPathThatReachesTheSyncedFolderByALink) {
  const auto link = kit_.dataFolder() + "-link";
  std::filesystem::create_directory_symlink(kit_.syncedFolder(), link);
  EXPECT_EQ(run({"copy-link", link + "/MyDocs/../MyDocs/Pläne 写.txt"}), "0 ");
  EXPECT_EQ(call(), "copy|" + id(file_) + "|0|0");
}

TEST_F(WithApplication, TakesNamesOfEveryKind) {
  for (const char *name : {"two\nlines", "not \xFF UTF-8", "--tab", "حداد"}) {
    const auto path = kit_.makeFile(name);
    EXPECT_EQ(run({"copy-link", "--", path}), "0 ");
    EXPECT_NE(call().find(id(path)), std::string::npos);
  }
}

TEST_F(WithApplication, TellsThatTheApplicationEndedDuringTheCall) {
  [application_ breakConnectionDuringCall];
  const auto result = run({"copy-link", file_});
  EXPECT_TRUE(result.starts_with("8 contextmenu: the application went away during the call"))
      << result;
}

TEST_F(WithApplication, ReportsItsStatus) {
  EXPECT_EQ(run({"status"}), "0 the application answers\n");
}

TEST_F(Client, TellsThatTheApplicationIsNotRunning) {
  EXPECT_EQ(run({"copy-link", file_}), "6 contextmenu: the application is not running\n");
  EXPECT_EQ(run({"status"}), "6 contextmenu: the application is not running\n");
}

TEST_F(Client, WaitsForTheApplicationToComeUp) {
  ChildProcess client({CONTEXTMENU, "--wait", "60", "copy-link", file_});
  StubApplication *const application = [[StubApplication alloc] init];
  pumpUntil([&] { return client.hasEnded(); });
  EXPECT_EQ(client.waitForEnd(), 0) << client.output();
  [application release];
}

TEST_F(Client, TellsThatTheApplicationDoesNotAnswer) {
  StubApplication *const application = [[StubApplication alloc] init];
  ChildProcess client({CONTEXTMENU, "--timeout", "0.5", "copy-link", file_});
  // Without running the run loop: the name is registered and does not reply.
  EXPECT_EQ(client.waitForEnd(), 6);
  EXPECT_EQ(client.output(), "contextmenu: the application does not answer\n");
  [application release];
}

TEST_F(Client, TellsThatTheApplicationDoesNotOfferTheOperation) {
  StubApplication *const application =
      [[StubApplication alloc] initVending:[[[NSObject alloc] init] autorelease]];
  const auto result = run({"copy-link", file_});
  EXPECT_TRUE(result.starts_with("7 contextmenu: the application does not offer this operation"))
      << result;
  [application release];
}

TEST_F(Client, TellsWhatIsWrongWithThePath) {
  const auto inside = kit_.path("");
  EXPECT_EQ(run({"copy-link", inside + "no\nthing"}),
            "3 contextmenu: " + inside + "no?thing: no such file or folder\n");
  EXPECT_EQ(run({"copy-link", file_ + "/"}),
            "3 contextmenu: " + file_ + "/: no such file or folder\n");
  EXPECT_EQ(
      run({"copy-link", "/etc/passwd"}),
      "4 contextmenu: /etc/passwd is not inside the synced folder " + kit_.syncedFolder() + "\n");
  EXPECT_EQ(run({"copy-link", kit_.syncedFolder()}).substr(0, 2), "4 ");
  EXPECT_EQ(run({"share", file_}),
            "2 contextmenu: " + file_ + " is a file; only folders are shared\n");
}

TEST_F(Client, TellsThatTheEngineHasNoId) {
  setenv("BV_DEVKIT_DATA", (file_ + "/data").c_str(), 1);
  const auto result = run({"copy-link", file_});
  EXPECT_TRUE(result.starts_with("5 ")) << result;
  EXPECT_NE(result.find("the sync engine has no id for " + file_ + " (code 6)\n"),
            std::string::npos)
      << result;
}

TEST_F(Client, TellsHowItIsUsed) {
  for (const auto &words : std::vector<std::vector<std::string>>{{},
                                                                 {"frob", "x"},
                                                                 {"copy-link"},
                                                                 {"copy-link", "a", "b"},
                                                                 {"copy-link", ""},
                                                                 {"copy-link", "a", "--tab", "1"},
                                                                 {"send", "a", "--tab", "2"},
                                                                 {"send", "a", "--tab"},
                                                                 {"send", "a", "--frob"},
                                                                 {"status", "a"},
                                                                 {"status", "--wait", "soon"}}) {
    const auto result = run(words);
    EXPECT_TRUE(result.starts_with("2 contextmenu: ")) << result;
    EXPECT_EQ(std::ranges::count(result, '\n'), 1) << result;
  }
  EXPECT_TRUE(run({"--help"}).starts_with("0 Usage: contextmenu "));
}
