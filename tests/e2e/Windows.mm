#import "tests/e2e/WindowTest.h"

namespace {

const std::string kFile = "Quarterly figures.csv";
const std::string kShare = "Share Folder";
const std::string kSendWindowClosedByOpener = "recieve Notification close send/copy window.";
const std::string kShareWindowClosedByOpener = "recieve Notification - close share folder window";

/// A call that opens a window, and the window's title.
struct Opening {
  const char *name;
  std::vector<std::string> command;
  std::string title;
};

struct WindowOpening : WindowTest, testing::WithParamInterface<Opening> {};

struct Windows : WindowTest {};

}  // namespace

TEST_P(WindowOpening, ShowsOneWindowWithItsTitleAndTheCallReturns) {
  ChildProcess call(GetParam().command);
  EXPECT_EQ(call.waitForEnd(), 0) << call.output();
  EXPECT_NE(onlyWindow(GetParam().title).number, "") << output();
  EXPECT_EQ(linesInLog("window closed"), 0);
}

INSTANTIATE_TEST_SUITE_P(
    OfEachTab, WindowOpening,
    testing::Values(Opening{"Send", SendCall{.tab = 0}.command(), kFile},
                    Opening{"CopyLink", SendCall{.tab = 1}.command(), kFile},
                    Opening{"HomeFolder", SendCall{.isMyDocs = 1, .isFolder = 1}.command(),
                            "MyDocs"},
                    Opening{"Permissions", ShareCall{.tab = 0}.command(), kShare},
                    Opening{"Invite", ShareCall{.tab = 1}.command(), kShare}),
    [](const auto &info) { return info.param.name; });

TEST_F(Windows, TheTabAtEachPositionHasItsOwnButtons) {
  ASSERT_TRUE(open(SendCall{.tab = 0}));
  const std::string send = settledPicture(buttonsOf(onlyWindow(kFile)));
  ASSERT_TRUE(open(SendCall{.tab = 1}));
  EXPECT_NE(settledPicture(buttonsOf(onlyWindow(kFile))), send);
  ASSERT_TRUE(open(ShareCall{.tab = 0}));
  const std::string permissions = settledPicture(buttonsOf(onlyWindow(kShare)));
  ASSERT_TRUE(open(ShareCall{.tab = 1}));
  EXPECT_NE(settledPicture(buttonsOf(onlyWindow(kShare))), permissions);
}

TEST_F(Windows, AnOpeningClosesTheSendWindowThatIsOpen) {
  ASSERT_TRUE(open(SendCall()));
  ASSERT_NE(onlyWindow(kFile).number, "");
  ASSERT_TRUE(open(ShareCall()));
  EXPECT_NE(onlyWindow(kShare).number, "");
  EXPECT_EQ(linesInLog(kSendWindowClosedByOpener), 1);
  EXPECT_EQ(linesInLog("window closed"), 1);
}

TEST_F(Windows, AnOpeningClosesTheShareWindowThatIsOpen) {
  ASSERT_TRUE(open(ShareCall()));
  ASSERT_NE(onlyWindow(kShare).number, "");
  ASSERT_TRUE(open(SendCall()));
  EXPECT_NE(onlyWindow(kFile).number, "");
  EXPECT_EQ(linesInLog(kShareWindowClosedByOpener), 1);
  EXPECT_EQ(linesInLog("window closed"), 1);
}

TEST_F(Windows, AnOpeningClosesTheWindowOfItsOwnKind) {
  ASSERT_TRUE(open(SendCall{.name = "former.txt"}));
  ASSERT_NE(onlyWindow("former.txt").number, "");
  ASSERT_TRUE(open(SendCall()));
  EXPECT_NE(onlyWindow(kFile).number, "");
  EXPECT_EQ(linesInLog(kSendWindowClosedByOpener), 1);
  EXPECT_EQ(linesInLog("window closed"), 1);
}

TEST_F(Windows, ADirectCopyClosesTheWindowThatIsOpen) {
  ASSERT_TRUE(open(SendCall()));
  ASSERT_NE(onlyWindow(kFile).number, "");
  EXPECT_TRUE(serves());
  EXPECT_TRUE(waitForWindows(0));
  EXPECT_EQ(linesInLog("window closed"), 1);
}

TEST_F(Windows, EscapeClosesTheWindow) {
  ASSERT_TRUE(open(SendCall()));
  ASSERT_NE(onlyWindow(kFile).number, "");
  pressKeys({"Escape"});
  EXPECT_TRUE(waitForWindows(0));
  EXPECT_EQ(linesInLog("window closed"), 1);
  EXPECT_TRUE(serves());
}

TEST_F(Windows, AClientThatEndsRightAfterItsCallGetsItsWindowAndTheNextOneIsServed) {
  for (const auto &command : {SendCall().command(), ShareCall().command()}) {
    auto leaving = command;
    leaving.insert(leaving.begin() + 1, "--leave");
    ChildProcess call(leaving);
    EXPECT_EQ(call.waitForEnd(), 0) << call.output();
    EXPECT_TRUE(waitForWindows(1));
    EXPECT_TRUE(serves());
    EXPECT_TRUE(waitForWindows(0));
  }
}

TEST_F(Windows, ClientsThatOpenWindowsAtTheSameTimeLeaveOneWindow) {
  std::vector<std::unique_ptr<ChildProcess>> clients;
  for (int i = 0; i < 3; ++i) {
    clients.push_back(std::make_unique<ChildProcess>(SendCall{.tab = i % 2}.command()));
    clients.push_back(std::make_unique<ChildProcess>(ShareCall{.tab = i % 2}.command()));
  }
  for (const auto &client : clients) EXPECT_EQ(client->waitForEnd(), 0) << client->output();
  EXPECT_TRUE(waitForWindows(1));
  EXPECT_EQ(linesInLog("window closed"), 5);
  EXPECT_TRUE(serves());
  EXPECT_TRUE(waitForWindows(0));
}
