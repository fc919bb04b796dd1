// Clicks on pop-ups as a user makes them: none of them changes anything by itself.

#include <csignal>

#include <ostream>

#import "tests/e2e/SendTab.h"
#import "tests/e2e/ShareTab.h"
#import "tests/e2e/WindowTest.h"
#import "tests/support/Arguments.h"
#include "tests/support/Thorough.h"

namespace {

NSString *const kGetAccess = @"getAccess::";
NSString *const kGrant = @"grantAccess:::::::::";

/// The places of a reader and of a writer in the list of people.
constexpr int kReaderRow = 0;
constexpr int kWriterRow = 1;

/// Longer than any click.
const std::string kLongerThanAClickSeconds = "0.6";

NSDictionary *person(NSString *name, BOOL mayWrite) {
  NSNumber *const write = [NSNumber numberWithBool:mayWrite];
  return @{
    @"type" : @"user",
    @"candownload" : @true,
    @"canupload" : write,
    @"candelete" : write,
    @"userfname" : name,
    @"userlname" : @"Last",
    @"useremail" : [name stringByAppendingString:@"@example.org"]
  };
}

/// A pop-up of one of the tabs, and two places in its menu.
struct PopUp {
  const char *name;
  /// The window's operation, and which tab.
  bool isShare;
  int tab;
  ScreenArea frame;
  int selected;
  int other;
};

/// All pop-ups are as high.
constexpr int kRows = 26;
/// An item of a menu is four rows lower than its pop-up; a row more than that at either edge.
constexpr int kRowsNextToAnEdge = 5;

/// The rows of a pop-up's pixels that are clicked, from its upper edge: those in the middle are far
/// from other controls, so one represents them all, unless every case is tested.
std::vector<int> clickedRows() {
  std::vector<int> rows;
  for (int row = 0; row < kRows; ++row) {
    const bool isNextToAnEdge = row < kRowsNextToAnEdge || row >= kRows - kRowsNextToAnEdge;
    if (isNextToAnEdge || row == kRows / 2 || isThorough()) rows.push_back(row);
  }
  return rows;
}

void PrintTo(const PopUp &popUp, std::ostream *out) {
  *out << popUp.name;
}

std::string nameOf(const testing::TestParamInfo<PopUp> &info) {
  return info.param.name;
}

constexpr InterfaceFrame kCopyDownloads = {"MainWindow", "CopyLinkController.noOfDownloads"};

std::vector<PopUp> popUps() {
  return {{"Reader", true, 0, accessInRow(kReaderRow), kReadOnly, kReadWrite},
          {"Writer", true, 0, accessInRow(kWriterRow), kReadWrite, kReadOnly},
          {"Invitation", true, 1, kInviteAccess, kReadOnly, kReadWrite},
          {"SendDownloads", false, 0, kSendDownloads, 0, 2},
          {"CopyDownloads", false, 1, kCopyDownloads, 0, 2}};
}

struct PopUpTest : WindowTest, ShareTab {
  explicit PopUpTest(const ChildProcess::Environment &environment = {})
      : WindowTest(RunningApplication::program(), environment) {}

  bool openOn(const PopUp &popUp) {
    agent->setScript(@{
      kGetAccess : @{@"reply" : success(@[ person(@"reader", NO), person(@"writer", YES) ])},
      kGrant : @{@"reply" : success(@1)}
    });
    const bool isOpen =
        popUp.isShare ? open(ShareCall{.tab = popUp.tab}) : open(SendCall{.tab = popUp.tab});
    if (!isOpen) return false;
    window = onlyWindow(popUp.isShare ? "Share Folder" : SendCall().name);
    return !window.number.empty() && (!popUp.isShare || popUp.tab != 0 || seesRows(2));
  }

  void clickRow(const PopUp &popUp, int row) const {
    const ScreenArea button = onScreen(popUp.frame);
    clickAt(button.x + button.width / 2, button.y + row);
  }

  ScreenArea otherItemOf(const PopUp &popUp) const {
    return itemOf(popUp.frame, popUp.selected, popUp.other);
  }

  void clickOn(const ScreenArea &area) const {
    clickAt(area.x + area.width / 2, area.y + area.height / 2);
  }
};

/// The user's setting for slow double clicks, by which a click is told from a press that is held: a
/// busy machine may release the button late. While it lives.
class SlowDoubleClicks {
 public:
  explicit SlowDoubleClicks(int milliseconds) {
    set(@{@"GSDoubleClickTime" : [NSNumber numberWithInt:milliseconds]});
  }
  ~SlowDoubleClicks() { set(@{}); }
  SlowDoubleClicks(const SlowDoubleClicks &) = delete;
  SlowDoubleClicks &operator=(const SlowDoubleClicks &) = delete;

 private:
  static void set(NSDictionary *settings) {
    NSUserDefaults *const defaults = [NSUserDefaults standardUserDefaults];
    [defaults setPersistentDomain:settings forName:@"ContextMenuApp"];
    [defaults synchronize];
  }
};

/// With an application that has been started with the setting.
template <int milliseconds>
struct SlowPopUpTest : SlowDoubleClicks, PopUpTest {
  SlowPopUpTest()
      : SlowDoubleClicks(milliseconds),
        PopUpTest({{"STARTED_FOR", "SlowPopUpTest" + std::to_string(milliseconds)}}) {}
  static void TearDownTestSuite() { SharedSystem::end(); }
};

constexpr int kSlowerThanAnyMachine = 30'000;
using PopUpClicks = SlowPopUpTest<kSlowerThanAnyMachine>;
struct PopUpRows : PopUpClicks, testing::WithParamInterface<PopUp> {};

/// The user's own setting.
using PopUpPresses = PopUpTest;

constexpr int kStoppedForLess = 4'000;
constexpr const char *kStoppedSeconds = "5";
using PopUpClicksOnAStoppedApplication = SlowPopUpTest<kStoppedForLess>;

}  // namespace

TEST_P(PopUpRows, AClickOnAnyRowOfPixelsOpensTheMenuAndSendsNothing) {
  const PopUp &popUp = GetParam();
  ASSERT_TRUE(openOn(popUp));
  for (const int row : clickedRows()) {
    clickRow(popUp, row);
    EXPECT_TRUE(seesOpenMenu(otherItemOf(popUp))) << row;
    pressKeys({"Escape"});
    EXPECT_TRUE(waitForWindows(1)) << row;
  }
  EXPECT_EQ(callsOf(kGrant), 0u);
}

INSTANTIATE_TEST_SUITE_P(Of, PopUpRows, testing::ValuesIn(popUps()), nameOf);

TEST_F(PopUpClicks, AClickOnAnItemOfTheOpenMenuChoosesIt) {
  const PopUp reader = popUps().front();
  ASSERT_TRUE(openOn(reader));
  clickRow(reader, 0);
  ASSERT_TRUE(seesOpenMenu(otherItemOf(reader)));
  EXPECT_EQ(callsOf(kGrant), 0u);
  clickOn(otherItemOf(reader));
  EXPECT_TRUE(seesSuccess());
  ASSERT_EQ(callsOf(kGrant), 1u);
  EXPECT_EQ(text([argumentsOf(kGrant) objectAtIndex:grant_operation::kUserEmail]),
            "reader@example.org");
}

TEST_F(PopUpClicks, ADoubleClickOnTheEdgeOfAButtonSendsNothing) {
  const PopUp reader = popUps().front();
  ASSERT_TRUE(openOn(reader));
  for (const int row : {0, 1, kRows / 2, kRows - 2, kRows - 1}) {
    clickRow(reader, row);
    ASSERT_TRUE(waitForWindows(2));
    clickRow(reader, row);
    EXPECT_TRUE(waitForWindows(1)) << row;
  }
  EXPECT_EQ(callsOf(kGrant), 0u);
}

TEST_F(PopUpClicks, AClickElsewhereClosesTheMenuAndDoesNothingElse) {
  const PopUp downloads = popUps().back();
  ASSERT_TRUE(openOn(downloads));
  clickRow(downloads, 0);
  ASSERT_TRUE(seesOpenMenu(otherItemOf(downloads)));
  click(kSendButton);  // the other tab's is in the same place
  EXPECT_TRUE(waitForWindows(1));
  EXPECT_EQ(callsOf(kFileLink), 0u);
  click(kSendButton);
  EXPECT_TRUE(waitFor([&] { return callsOf(kFileLink) == 1; }));
}

TEST_F(PopUpPresses, ThatAreHeldOnTheEdgeOfAButtonSendNothing) {
  const PopUp reader = popUps().front();
  ASSERT_TRUE(openOn(reader));
  const ScreenArea button = onScreen(reader.frame);
  for (const int row : {0, 1, kRows - 2, kRows - 1}) {
    outputOf({"/usr/bin/xdotool", "mousemove", std::to_string(button.x + 20),
              std::to_string(button.y + row), "mousedown", "1", "sleep", kLongerThanAClickSeconds,
              "mouseup", "1"});
    EXPECT_TRUE(waitForWindows(1)) << row;
  }
  // A later press shows that the last one has been handled.
  pressButton();
  EXPECT_TRUE(waitForWindows(2));
  EXPECT_EQ(callsOf(kGrant), 0u);
  moveTo(button.x - 20, button.y);
  releaseButton();
  EXPECT_TRUE(waitForWindows(1));
}

TEST_F(PopUpClicksOnAStoppedApplication, AreClicksWhenItGoesOn) {
  const PopUp reader = popUps().front();
  ASSERT_TRUE(openOn(reader));
  const ScreenArea button = onScreen(reader.frame);
  moveTo(button.x + 20, button.y);
  pressButton();
  application.process().signal(SIGSTOP);
  releaseButton();
  outputOf({"/usr/bin/xdotool", "sleep", kStoppedSeconds});
  application.process().signal(SIGCONT);
  EXPECT_TRUE(seesOpenMenu(otherItemOf(reader)));
  pressKeys({"Escape"});
  EXPECT_TRUE(waitForWindows(1));
  EXPECT_EQ(callsOf(kGrant), 0u);
}

TEST_F(PopUpClicks, ArrowsAndReturnChooseInAMenuThatAClickHasOpened) {
  const PopUp reader = popUps().front();
  ASSERT_TRUE(openOn(reader));
  clickRow(reader, kRows / 2);
  ASSERT_TRUE(waitForWindows(2));
  pressKeys({"Up", "Return"});
  EXPECT_TRUE(seesSuccess());
  EXPECT_EQ(callsOf(kGrant), 1u);
}
