#include <csignal>

#import "tests/e2e/CopyLinkTabOnScreen.h"
#import "tests/e2e/WindowManager.h"

namespace {

constexpr int kTimes = 5;
/// A success sheet is shown for three seconds.
constexpr int kTimesOfSuccess = 3;

/// A desktop with a window manager and no other program's window, which would get the focus
/// whenever a window of the application is closed.
struct KeyboardFocus : WindowManager, CopyLinkTab {
  // The application looks for a window manager when it is launched.
  KeyboardFocus() : CopyLinkTab(RunningApplication::program(), {}, Application::OfItsOwn) {}

  /// Opens a window while the window manager is stopped, so that it learns of the window after the
  /// application has requested the focus, and waits for the focus.
  bool openAheadOfWindowManager() {
    WindowManager::process().signal(SIGSTOP);
    const bool isOpen = open(SendCall());
    WindowManager::process().signal(SIGCONT);
    return isOpen && waitForKeyboard();
  }

  bool closeByKey(const std::string &name) {
    pressKeys({name});
    return waitForWindows(0);
  }

  /// Copies the link with Return, and waits for the end of the success.
  bool closeBySuccess() {
    pressKeys({"Return"});
    return waitForWindows(2) && waitForWindows(0);
  }

  /// Has the agent refuse, dismisses the alert and cancels.
  bool closeAfterAlert() {
    pressKeys({"Return"});
    return waitForWindows(2) && dismissAlert() && waitForKeyboard() && closeByKey("Escape");
  }
};

}  // namespace

TEST_F(KeyboardFocus, AWindowOpenedSoonAfterOneWasClosedByEscapeGetsTheKeys) {
  for (int i = 0; i < kTimes; ++i) {
    ASSERT_TRUE(openAheadOfWindowManager()) << "window " << i;
    ASSERT_TRUE(closeByKey("Escape")) << "window " << i;
  }
}

TEST_F(KeyboardFocus, AWindowOpenedSoonAfterASuccessGetsTheKeys) {
  agent->answer(kFileLink, success(@"https://x/y"));
  for (int i = 0; i < kTimesOfSuccess; ++i) {
    ASSERT_TRUE(openAheadOfWindowManager()) << "window " << i;
    ASSERT_TRUE(closeBySuccess()) << "window " << i;
  }
}

TEST_F(KeyboardFocus, AWindowOpenedSoonAfterAnAlertGetsTheKeys) {
  agent->answer(kFileLink, refusal(1, @"quota"));
  for (int i = 0; i < kTimes; ++i) {
    ASSERT_TRUE(openAheadOfWindowManager()) << "window " << i;
    ASSERT_TRUE(closeAfterAlert()) << "window " << i;
  }
}

namespace {

/// Another program's window takes the focus between the last key that the application has received
/// and its next window. No window manager gives that the focus.
struct KeyboardOfAnotherProgram : CopyLinkTab {
  ChildProcess other{{"/usr/bin/xev", "-event", "keyboard", "-name", "other"}};

  bool giveKeyboardToOther() {
    std::string number;
    const bool isThere = waitFor([&] {
      number = outputOf({"/usr/bin/xdotool", "search", "--onlyvisible", "--name", "^other$"});
      return !number.empty();
    });
    if (!isThere) return false;
    number.erase(number.find('\n'));
    outputOf({"/usr/bin/xdotool", "windowfocus", number});
    return true;
  }
};

}  // namespace

TEST_F(KeyboardOfAnotherProgram, IsTakenByAWindowThatIsOpenedSoonAfterAKey) {
  for (int i = 0; i < kTimes; ++i) {
    ASSERT_TRUE(open(SendCall()) && waitForKeyboard()) << "window " << i;
    pressKeys({"Tab"});
    ASSERT_TRUE(giveKeyboardToOther());
    ASSERT_TRUE(open(SendCall()) && waitForKeyboard()) << "window " << i;
  }
}
