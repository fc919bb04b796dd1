#include "tests/e2e/ScreenTab.h"
#import "tests/e2e/SendTab.h"
#import "tests/e2e/WindowTest.h"

namespace {

constexpr InterfaceFrame kSendWindow = {"MainWindow", "SendAndCopyTabController.window"};

/// On a desktop that enlarges everything.
struct ScaledScreen : WindowTest {
  static constexpr double kScale = 1.5;

  ScaledScreen() : WindowTest(RunningApplication::program(), {{"GDK_SCALE", "1.5"}}) {}

  /// Opens the send window.
  ScreenWindow openSend() {
    EXPECT_TRUE(open(SendCall{.name = "a.txt", .tab = 0}));
    return onlyWindow("a.txt");
  }

  /// The window that has come in addition.
  static ScreenWindow other(const ScreenWindow &window) {
    EXPECT_TRUE(waitForWindows(2));
    for (const ScreenWindow &shown : windowsOnScreen()) {
      if (shown.number != window.number) return shown;
    }
    return {};
  }
};

}  // namespace

TEST_F(ScaledScreen, AWindowIsLargerByTheDesktopsFactor) {
  const ScreenArea points = kSendWindow;
  const ScreenArea area = openSend().area;
  EXPECT_EQ(area.width, points.width * kScale);
  EXPECT_NEAR(area.height, points.height * kScale, 1);
}

TEST_F(ScaledScreen, CompletionsLieUnderTheField) {
  const ScreenWindow window = openSend();
  typeText("fi");
  const ScreenArea list = other(window).area;
  const ScreenArea points = kSendWindow;
  const ScreenTab tab{.window = {.area = {0, 0, points.width, points.height}}};
  const ScreenArea field = tab.onScreen(kSendRecipients);
  EXPECT_NEAR(list.x - window.area.x, field.x * kScale, 2);
  EXPECT_NEAR(list.width, field.width * kScale, 2);
  EXPECT_NEAR(list.y - window.area.y, (field.y + field.height) * kScale, 5);
  pressKeys({"Escape"});
  EXPECT_TRUE(waitForWindows(1));
}

TEST_F(ScaledScreen, AnAlertHangsUnderTheMiddleOfTheTitleBar) {
  const ScreenWindow window = openSend();
  typeText("nobody");
  pressKeys({"Return", "Return"});
  EXPECT_TRUE(waitForSheet(window));
  const ScreenArea alert = other(window).area;
  const ScreenArea &below = window.area;
  EXPECT_NEAR(2 * alert.x + alert.width, 2 * below.x + below.width, 2);
  EXPECT_EQ(alert.y, window.area.y);
  EXPECT_LT(alert.height, window.area.height);
  pressKeys({"Return"});
  EXPECT_TRUE(waitForWindows(1));
}
