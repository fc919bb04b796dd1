#import "tests/e2e/ShareTab.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/ChildProcess.h"

namespace {

constexpr InterfaceFrame kList = {"ShareFolder", "PermissionTabController.fullScrollView"};
constexpr InterfaceFrame kRow = {"ShareFolder", "PermissionTabController.currView"};
constexpr InterfaceFrame kAccess = {"ShareFolder", "PermissionTabController.permissionType"};
constexpr InterfaceFrame kRemove = {"ShareFolder", "PermissionTabController.removeEntry"};
constexpr InterfaceFrame kTab = {"ShareFolder", "PermissionTabController.permissionTab"};
/// An alert is larger.
constexpr InterfaceFrame kSuccess = {"ShareFolder", "PermissionTabController.modalWindow"};

/// What the platform draws of the list's border at each edge.
constexpr int kBorder = 2;

/// The whole of a row in the list, which is not scrolled.
ScreenArea wholeRow(int row) {
  const ScreenArea list = kList;
  const int height = ScreenArea(kRow).height;
  return {list.x + kBorder, list.y + list.height - kBorder - height * (row + 1),
          list.width - 2 * kBorder, height};
}

/// A control of a row. A row is as wide as the list, and its controls stay at its right edge.
ScreenArea inRow(int row, const ScreenArea &control) {
  const ScreenArea whole = wholeRow(row);
  return {whole.x + control.x + whole.width - ScreenArea(kRow).width, whole.y + control.y,
          control.width, control.height};
}

bool successIsOnScreen() {
  const ScreenArea success = kSuccess;
  const auto windows = windowsOnScreen();
  return std::any_of(windows.begin(), windows.end(), [&](const ScreenWindow &window) {
    return window.area.width == success.width && window.area.height == success.height;
  });
}

}  // namespace

NSArray *readers(int count) {
  NSMutableArray *const all = [NSMutableArray array];
  for (int i = 0; i < count; ++i) {
    [all addObject:@{
      @"type" : @"user",
      @"candownload" : @true,
      @"userfname" : [NSString stringWithFormat:@"Reader%d", i],
      @"userlname" : @"Last",
      @"useremail" : [NSString stringWithFormat:@"reader%d@example.org", i]
    }];
  }
  return all;
}

ScreenArea accessInRow(int row) {
  return inRow(row, kAccess);
}

void ShareTab::goTo(const ScreenArea &label) const {
  const ScreenArea tab = kTab;
  const ScreenArea content = onScreen({0, 0, tab.width, tab.height});
  const std::string before = settledPicture(content);
  click(label);
  EXPECT_TRUE(waitFor([&] { return picture(content) != before; }));
  EXPECT_NE(settledPicture(content), "");
}

bool ShareTab::seesRows(int count) const {
  // An empty area has one colour, for which picture returns "".
  return waitFor([&] {
    for (int row = 0; row < count; ++row) {
      if (picture(onScreen(wholeRow(row))).empty()) return false;
    }
    return picture(onScreen(wholeRow(count))).empty();
  });
}

bool ShareTab::seesAnyRow() const {
  return waitFor([&] { return !picture(onScreen(wholeRow(0))).empty(); });
}

void ShareTab::chooseAccess(int row, int from, int to) const {
  chooseAtOnce(accessInRow(row), from, to);
}

bool ShareTab::askToRemove(int row) const {
  return clickAndSeeSheet(inRow(row, kRemove)) && waitForKeyboard();
}

bool ShareTab::seesSuccess() const {
  return waitFor(successIsOnScreen) && waitForWindows(1);
}
