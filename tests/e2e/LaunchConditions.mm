#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "tests/e2e/OwnProcesses.h"
#import "tests/e2e/RunningApplication.h"
#include "tests/support/AgentProcess.h"

// Where the application cannot run, it ends with a line that says why.

namespace fs = std::filesystem;

namespace {

constexpr int kNoPlaceToRun = 1;

/// The application, started in an environment in which it must end by itself.
struct LaunchConditions : OwnProcesses {
  void expectThatItEnds(const ChildProcess::Environment &environment, const std::string &reason) {
    ChildProcess application({RunningApplication::program()}, withoutLeakSearch(environment));
    EXPECT_EQ(application.waitForEnd(), kNoPlaceToRun);
    EXPECT_EQ(application.output(), "ContextMenuApp: " + reason);
  }
};

/// A display of its own, as DISPLAY names it; "" when none starts.
struct OtherDisplay {
  ChildProcess server;

  explicit OtherDisplay(const std::vector<std::string> &options = {}) : server(command(options)) {}

  std::string name() const {
    const auto lineEnd = [&] { return server.output().find('\n'); };
    if (!waitFor([&] { return lineEnd() != std::string::npos; })) return "";
    return ":" + server.output().substr(0, lineEnd());
  }

 private:
  static std::vector<std::string> command(const std::vector<std::string> &options) {
    // Only the display's number, without what it complains about.
    std::vector<std::string> all = {
        "/bin/sh", "-c", "exec Xvfb -displayfd 1 -nolisten tcp -noreset \"$@\" 2>/dev/null",
        "Xvfb"};
    all.insert(all.end(), options.begin(), options.end());
    return all;
  }
};

/// A folder for temporary files as /tmp is one: every user may create files in it.
struct UnsafeFolder : LaunchConditions {
  const fs::path base = newTemporaryFolder();
  const fs::path own = base / ("GNUstepSecure" + std::to_string(geteuid()));

  UnsafeFolder() { fs::permissions(base, fs::perms(01777)); }

  ChildProcess::Environment environment() const { return {{"TEMP", base}, {"TMP", base}}; }

  std::string refusal(const std::string &problem) const {
    return "the temporary folder \"" + own.string() + "\" " + problem +
           "; no connection in it could be trusted\n";
  }

  void expectRefusal(const std::string &problem) {
    expectThatItEnds(environment(), refusal(problem));
  }
};

}  // namespace

TEST_F(LaunchConditions, WithoutADisplayItEndsWithOneLine) {
  expectThatItEnds({{"DISPLAY", ""}}, "there is no display; DISPLAY is not set\n");
}

TEST_F(LaunchConditions, WithAWrongDisplayItEndsWithOneLine) {
  expectThatItEnds({{"DISPLAY", ":4711"}}, "the display \":4711\" cannot be opened\n");
}

TEST_F(LaunchConditions, WithADisplayThatItMayNotUseItEndsWithOneLineOfItsOwn) {
  const std::string keys = newTemporaryFolder() + "/keys";
  const OtherDisplay display({"-auth", keys});
  const std::string name = display.name();
  ASSERT_NE(name, "");
  outputOf({"/usr/bin/xauth", "-f", keys, "add", name, ".", std::string(32, 'a')});
  ChildProcess application({RunningApplication::program()},
                           withoutLeakSearch({{"DISPLAY", name}, {"XAUTHORITY", "/dev/null"}}));
  EXPECT_EQ(application.waitForEnd(), kNoPlaceToRun);
  EXPECT_TRUE(application.output().ends_with("ContextMenuApp: the display \"" + name +
                                             "\" cannot be opened\n"))
      << application.output();
  EXPECT_EQ(application.countInOutput("ContextMenuApp"), 1);
}

TEST_F(LaunchConditions, WhenTheDisplayGoesAwayItEndsWithOneLine) {
  const AgentProcess agent;
  OtherDisplay display;
  const std::string name = display.name();
  ASSERT_NE(name, "");
  RunningApplication application(withoutLeakSearch({{"DISPLAY", name}}));
  ASSERT_TRUE(application.waitUntilServing()) << application.process().output();
  display.server.signal(SIGKILL);
  EXPECT_EQ(application.process().waitForEnd(), kNoPlaceToRun);
  EXPECT_TRUE(application.process().output().ends_with("\nContextMenuApp: the display \"" + name +
                                                       "\" is gone\n"))
      << application.process().output();
}

TEST_F(LaunchConditions, WithoutAFolderForTemporaryFilesItEndsWithOneLine) {
  expectThatItEnds({{"TEMP", "/nowhere"}, {"TMP", "/nowhere"}},
                   "there is no temporary folder \"/nowhere\"; no connection in it could be "
                   "trusted\n");
}

TEST_F(UnsafeFolder, OfAnotherUserIsRefused) {
  fs::create_directory(own);
  fs::permissions(own, fs::perms(0700));
  ASSERT_EQ(chown(own.c_str(), 4711, 4711), 0) << "this test needs to run as root";
  expectRefusal("belongs to another user");
}

TEST_F(UnsafeFolder, ThatOthersMayWriteToIsRefusedAndNotClosed) {
  fs::create_directory(own);
  fs::permissions(own, fs::perms(0777));
  expectRefusal("is open to other users");
  EXPECT_EQ(fs::status(own).permissions(), fs::perms(0777));
}

TEST_F(UnsafeFolder, ThatIsALinkIsRefusedAndWhatItLeadsToIsLeftAlone) {
  const fs::path elsewhere = newTemporaryFolder();
  fs::permissions(elsewhere, fs::perms(0755));
  fs::create_directory_symlink(elsewhere, own);
  expectRefusal("is a symbolic link");
  EXPECT_EQ(fs::status(elsewhere).permissions(), fs::perms(0755));
  EXPECT_TRUE(fs::is_empty(elsewhere));
}

TEST_F(UnsafeFolder, ThatIsAFileIsRefused) {
  std::ofstream(own) << "";
  expectRefusal("is not a folder");
}

TEST_F(UnsafeFolder, IsRefusedByThePluginsClientAsWell) {
  fs::create_directory_symlink(newTemporaryFolder(), own);
  ChildProcess client({CONTEXTMENU, "status"}, environment());
  EXPECT_EQ(client.waitForEnd(), 6);
  EXPECT_EQ(client.output(), "contextmenu: " + refusal("is a symbolic link"));
}

TEST_F(UnsafeFolder, OfAnotherUserIsRefusedByThePluginsClientAsWell) {
  fs::create_directory(own);
  ASSERT_EQ(chown(own.c_str(), 4711, 4711), 0) << "this test needs to run as root";
  ChildProcess client({CONTEXTMENU, "status"}, environment());
  EXPECT_EQ(client.waitForEnd(), 6);
  EXPECT_EQ(client.output(), "contextmenu: " + refusal("belongs to another user"));
}

TEST_F(UnsafeFolder, IsRefusedByTheDevelopmentAgentAsWell) {
  fs::create_directory_symlink(newTemporaryFolder(), own);
  ChildProcess agent({DEVELOPMENT_AGENT}, environment());
  EXPECT_EQ(agent.waitForEnd(), 1);
  EXPECT_EQ(agent.output(), "VeldaneKRVAgent: " + refusal("is a symbolic link"));
}
