#include <signal.h>

#include "platform/gnustep/theme/ThemeColors.h"
#include "tests/e2e/ScreenTab.h"
#import "tests/e2e/SendTab.h"
#import "tests/e2e/WindowTest.h"
#include "tests/support/desktop/SessionBus.h"

namespace {

/// A desktop that is dark when the application starts.
struct Desktop {
  SessionBus bus;
  ScriptedPortal portal{bus};

  Desktop() {
    portal.setDark(true);
    portal.tell("appear");
  }
};

/// The same with a bus that hangs meanwhile.
struct SlowDesktop : Desktop {
  SlowDesktop() { bus.process().signal(SIGSTOP); }
  ~SlowDesktop() { bus.process().signal(SIGCONT); }
};

struct LookTest : WindowTest {
  explicit LookTest(const ChildProcess::Environment &environment)
      : WindowTest(RunningApplication::program(), environment) {}

  static ScreenWindow openSend() {
    EXPECT_TRUE(open(SendCall{.name = "a.txt", .tab = 0}));
    return onlyWindow("a.txt");
  }

  /// Waits until the window's corner has this colour.
  static bool becomes(const ScreenWindow &window, theme::Rgb color) {
    const ScreenArea corner = {window.area.x + 2, window.area.y + 2, 1, 1};
    const std::string wanted = {static_cast<char>(color), static_cast<char>(color >> 8),
                                static_cast<char>(color >> 16)};
    return waitFor([&] { return pixelsIn(corner).substr(0, 3) == wanted; });
  }
};

template <class Kind>
struct OnDesktop : Kind, LookTest {
  OnDesktop() : LookTest({{"DBUS_SESSION_BUS_ADDRESS", Kind::bus.address()}}) {}
};

/// A desktop without a session bus.
struct DarkTheme : LookTest {
  DarkTheme() : LookTest({{"GTK_THEME", "Adwaita:dark"}}) {}
};

/// What the window manager is told of the window's title bar.
std::string variantOf(const ScreenWindow &window) {
  return outputOf({"/usr/bin/xprop", "-id", window.number, "-notype", "_GTK_THEME_VARIANT"});
}

using DarkDesktop = OnDesktop<Desktop>;
using HangingBus = OnDesktop<SlowDesktop>;

}  // namespace

TEST_F(DarkDesktop, AWindowIsDarkAndFollowsTheDesktopWhileItIsOpen) {
  const ScreenWindow window = openSend();
  EXPECT_TRUE(becomes(window, theme::kWindow.dark));
  EXPECT_EQ(variantOf(window), "_GTK_THEME_VARIANT = \"dark\"\n");
  portal.changeToDark(false);
  EXPECT_TRUE(becomes(window, theme::kWindow.light));
  EXPECT_EQ(variantOf(window), "_GTK_THEME_VARIANT:  not found.\n");
  portal.changeToDark(true);
  EXPECT_TRUE(becomes(window, theme::kWindow.dark));
}

TEST_F(HangingBus, DelaysNothingAndIsHeardLater) {
  const ScreenWindow window = openSend();
  EXPECT_TRUE(becomes(window, theme::kWindow.light));
  bus.process().signal(SIGCONT);
  EXPECT_TRUE(becomes(window, theme::kWindow.dark));
}

TEST_F(DarkTheme, IsFollowedWithoutAPortal) {
  const ScreenWindow window = openSend();
  EXPECT_TRUE(becomes(window, theme::kWindow.dark));
}
