#include <filesystem>
#include <map>

#import "tests/e2e/WindowTest.h"
#include "tests/support/CapturedLog.h"

namespace {

namespace fs = std::filesystem;

const std::string kFile = "Quarterly figures.csv";
const std::string kShare = "Share Folder";

/// A copy of the application of which these resources have been removed; returns its executable.
std::string applicationWithout(const std::vector<std::string> &resources) {
  const fs::path original = fs::path(RunningApplication::program()).parent_path();
  const fs::path copy = fs::path(newTemporaryFolder()) / original.filename();
  fs::copy(original, copy, fs::copy_options::recursive);
  for (const std::string &resource : resources) {
    if (fs::remove_all(copy / "Resources" / resource) == 0) {
      throw std::runtime_error("the application has no " + resource);
    }
  }
  return copy / fs::path(RunningApplication::program()).filename();
}

struct WithoutSendWindow : WindowTest {
  WithoutSendWindow() : WindowTest(applicationWithout({"MainWindow.xib"})) {}
};

struct WithoutShareWindow : WindowTest {
  WithoutShareWindow() : WindowTest(applicationWithout({"ShareFolder.xib"})) {}
};

struct WithoutIcon : WindowTest {
  WithoutIcon() : WindowTest(applicationWithout({"025_Ostrel_Combo_Mac.icns"})) {}
};

struct WithoutTexts : WindowTest {
  WithoutTexts()
      : WindowTest(applicationWithout({"de.lproj", "en.lproj", "es.lproj", "fr.lproj", "it.lproj",
                                       "ja.lproj", "pt-BR.lproj", "zh-Hans.lproj"})) {}

  /// How many times the application has named each text that it lacks.
  std::map<std::string, int> missingTexts() const {
    std::map<std::string, int> counts;
    for (const std::string &line : logLinesIn(application.process().output())) {
      if (line.starts_with("No text for ")) ++counts[line];
    }
    return counts;
  }
};

}  // namespace

TEST_F(WithoutSendWindow, TheCallReturnsOneLineSaysWhyAndTheOtherWindowOpens) {
  EXPECT_TRUE(open(SendCall()));
  EXPECT_TRUE(windowsOnScreen().empty());
  EXPECT_EQ(linesInLog("SendAndCopyTabController: could not load nib named MainWindow"), 1);
  ASSERT_TRUE(open(ShareCall()));
  EXPECT_NE(onlyWindow(kShare).number, "");
  // No part of the window that could not be loaded remains to be closed.
  EXPECT_EQ(linesInLog("recieve Notification close send/copy window."), 0);
  EXPECT_TRUE(serves());
}

TEST_F(WithoutShareWindow, TheCallReturnsOneLineSaysWhyAndTheOtherWindowOpens) {
  EXPECT_TRUE(open(ShareCall()));
  EXPECT_TRUE(windowsOnScreen().empty());
  EXPECT_EQ(linesInLog("BrisvaleTabController: could not load nib named ShareFolder"), 1);
  ASSERT_TRUE(open(SendCall()));
  EXPECT_NE(onlyWindow(kFile).number, "");
  EXPECT_EQ(linesInLog("recieve Notification - close share folder window"), 0);
  EXPECT_TRUE(serves());
}

TEST_F(WithoutIcon, AnAlertComesUpAllTheSameAndOneLineSaysWhatIsMissing) {
  agent->answer(kFileLink, refusal(1, @"no"));
  ASSERT_TRUE(open(SendCall()));
  ASSERT_NE(onlyWindow(kFile).number, "");
  pressKeys({"Return"});
  ASSERT_TRUE(waitForWindows(2));
  EXPECT_EQ(linesInLog("No image \"025_Ostrel_Combo_Mac.icns\""), 1);
  EXPECT_TRUE(serves());
}

TEST_F(WithoutTexts, BothWindowsOpenAndEachMissingTextIsNamedOnce) {
  for (int round = 0; round < 2; ++round) {
    ASSERT_TRUE(open(SendCall()));
    EXPECT_NE(onlyWindow(kFile).number, "");
    ASSERT_TRUE(open(ShareCall()));
    EXPECT_NE(onlyWindow("").number, "");
  }
  const auto missing = missingTexts();
  EXPECT_EQ(missing.count("No text for \"copyLinkButtonTitleKey\""), 1u);
  EXPECT_EQ(missing.count("No text for \"inviteButtonTitleKey\""), 1u);
  for (const auto &[line, count] : missing) EXPECT_EQ(count, 1) << line;
  EXPECT_TRUE(serves());
}
