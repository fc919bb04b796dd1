// From end to end: the selection in the real file manager, the menu on the screen, a click on one
// of its items, the development agent and its library.
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

#include "tests/devkit/Kit.h"
#include "tests/e2e/OwnProcesses.h"
#import "tests/e2e/RunningApplication.h"
#include "tests/e2e/Screen.h"
#include "tests/support/Strings.h"

namespace {

constexpr int kPointerX = 700;
constexpr int kPointerY = 300;
constexpr int kAnchorSide = 200;
constexpr int kMenuItemHeight = 22;

/// Where the menu's items are, from its top.
enum class Item { CopyLink, SendFile, SendFolder, ShareFolder };

bool isAnchor(const ScreenWindow &window) {
  return window.area.width == kAnchorSide && window.area.height == kAnchorSide;
}

/// The path of the user's synced folder, which this folder's path only has to contain, so that the
/// user's own is not touched.
std::string likeTheUsersFolder() {
  return "elsewhere/Users/" + text(NSUserName()) + "/Brisvale";
}

struct ContextMenuOnScreen : OwnProcesses {
  Kit kit;
  std::string folder = kit.makeFolder(likeTheUsersFolder());
  std::string file = kit.makeFile(likeTheUsersFolder() + "/MyDocs/Quarterly figures.csv");
  std::string folderToShare = kit.makeFolder(likeTheUsersFolder() + "/MyDocs/Project Aurora");
  ChildProcess agent{{DEVELOPMENT_AGENT}};
  ChildProcess fileManager{{FILE_MANAGER}};
  RunningApplication application;

  void SetUp() override {
    ASSERT_TRUE(agent.waitForOutput("registered as")) << agent.output();
    ASSERT_TRUE(application.waitUntilServing()) << application.process().output();
    ASSERT_TRUE(waitFor([] {
      @autoreleasepool {
        return [NSConnection rootProxyForConnectionWithRegisteredName:@"GWorkspace"
                                                                 host:nil] != nil;
      }
    })) << fileManager.output();
  }

  /// Selects an item in the file manager; returns whether it has been selected.
  static bool select(const std::string &path) {
    ChildProcess selection({DESKTOP_DRIVER, "select", path});
    const bool isSelected = selection.waitForEnd() == 0;
    EXPECT_TRUE(isSelected) << selection.output();
    return isSelected;
  }

  static bool isMenuOnScreen() {
    const auto windows = windowsOnScreen();
    return std::any_of(windows.begin(), windows.end(), [](const ScreenWindow &window) {
      return !isAnchor(window) && window.area.width > 0;
    });
  }

  static bool isOnScreen(const std::string &title) {
    const auto windows = windowsOnScreen();
    return std::any_of(windows.begin(), windows.end(),
                       [&](const ScreenWindow &window) { return window.title == title; });
  }

  /// Has the menu popped up and clicks below its upper left corner, which is at the pointer;
  /// returns whether the menu has closed when the call that opened it returns.
  static bool popUpAndClick(int x, int y) {
    moveTo(kPointerX, kPointerY);
    ChildProcess caller({DESKTOP_DRIVER, "menu"});
    if (!waitFor([] { return isMenuOnScreen(); })) return false;
    settledPicture({kPointerX, kPointerY, kAnchorSide, 4 * kMenuItemHeight});
    // To the item first, and then the click: the menu looks where the pointer is from time to time.
    const ScreenArea items = {kPointerX, kPointerY, kAnchorSide, 4 * kMenuItemHeight};
    const std::string before = picture(items);
    moveTo(kPointerX + x, kPointerY + y);
    if (y > 0) waitFor([&] { return picture(items) != before; });
    clickAt(kPointerX + x, kPointerY + y);
    return caller.waitForEnd() == 0;
  }

  /// Has the menu popped up and presses keys; returns whether it has closed when the call that
  /// opened it returns.
  static bool popUpAndPress(const std::vector<std::string> &keys) {
    ChildProcess caller({DESKTOP_DRIVER, "menu"});
    if (!waitFor([] { return isMenuOnScreen() && isInputGrabbed(); })) return false;
    pressKeys(keys);
    return caller.waitForEnd() == 0;
  }

  static bool choose(Item item) {
    return popUpAndClick(40, static_cast<int>(item) * kMenuItemHeight + kMenuItemHeight / 2 + 2);
  }
};

}  // namespace

TEST_F(ContextMenuOnScreen, CopyLinkPutsTheLinkToWhatIsSelectedOnTheClipboard) {
  ASSERT_TRUE(select(file));
  ASSERT_TRUE(choose(Item::CopyLink));
  const std::string link = clipboardReadByXclip();
  EXPECT_EQ(link.rfind("https://", 0), 0u) << link << application.process().output();
  EXPECT_NE(kit.data("operations.jsonl").find(link), std::string::npos);
  EXPECT_FALSE(RunningApplication::isVisible());
}

TEST_F(ContextMenuOnScreen, ItHasTheKeysWhileTheFileManagerHasTheKeyboard) {
  ASSERT_TRUE(select(file));
  const std::string focused = focusedWindow();
  ASSERT_TRUE(popUpAndPress({"Down", "Return"}));
  const std::string link = clipboardReadByXclip();
  EXPECT_EQ(link.rfind("https://", 0), 0u) << link << application.process().output();
  EXPECT_EQ(focusedWindow(), focused);
}

TEST_F(ContextMenuOnScreen, SendFileOpensItsWindow) {
  ASSERT_TRUE(select(file));
  ASSERT_TRUE(choose(Item::SendFile));
  EXPECT_TRUE(waitFor([] { return isOnScreen("Quarterly figures.csv"); }));
  EXPECT_TRUE(waitForKeyboard());
}

TEST_F(ContextMenuOnScreen, SendFolderOpensItsWindow) {
  ASSERT_TRUE(select(folderToShare));
  ASSERT_TRUE(choose(Item::SendFolder));
  EXPECT_TRUE(waitFor([] { return isOnScreen("Project Aurora"); }));
}

TEST_F(ContextMenuOnScreen, ShareFolderOpensItsWindow) {
  ASSERT_TRUE(select(folderToShare));
  ASSERT_TRUE(choose(Item::ShareFolder));
  EXPECT_TRUE(waitFor([] { return isOnScreen("Project Aurora"); }));
}

TEST_F(ContextMenuOnScreen, TheAnchorWindowIsThereAndIsNotSeen) {
  fileManager.signal(SIGKILL);
  fileManager.waitForEnd();
  const ScreenArea place = {kPointerX, kPointerY - kAnchorSide, kAnchorSide, kAnchorSide};
  // A click elsewhere dismisses the menu and chooses nothing, so the application stays visible.
  ASSERT_TRUE(popUpAndClick(-kPointerX / 2, -kPointerY / 2));
  const auto windows = windowsOnScreen();
  ASSERT_EQ(windows.size(), 1u);
  EXPECT_TRUE(isAnchor(windows.front()));
  EXPECT_EQ(windows.front().area.x, place.x);
  EXPECT_EQ(picture(place), "");  // one colour: the desktop's
}
