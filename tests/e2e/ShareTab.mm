#import "tests/e2e/ShareTab.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/ChildProcess.h"

namespace {

/// The upper edge of the list's content, and how high a row is.
constexpr int kListTop = 338;
constexpr int kRowHeight = 36;
/// Where the list's content begins, and how wide it is.
constexpr int kListX = 22;
constexpr int kListWidth = 512;
/// A row is this much wider than in the interface file, and its controls stand at its right.
constexpr int kWidened = 18;

/// The size of the sheet in the interface file. An alert is larger.
constexpr int kSuccessWidth = 400;
constexpr int kSuccessHeight = 70;

ScreenArea inRow(int row, const ScreenArea &frame) {
  return {kListX + frame.x, kListTop - kRowHeight * (row + 1) + frame.y, frame.width, frame.height};
}

ScreenArea wholeRow(int row) {
  return inRow(row, {0, 0, kListWidth, kRowHeight});
}

ScreenArea removeIn(int row) {
  return inRow(row, {376 + kWidened, 1, 116, 32});
}

bool successIsOnScreen() {
  const auto windows = windowsOnScreen();
  return std::any_of(windows.begin(), windows.end(), [](const ScreenWindow &window) {
    return window.area.width == kSuccessWidth && window.area.height == kSuccessHeight;
  });
}

}  // namespace

ScreenArea accessInRow(int row) {
  return inRow(row, {171 + kWidened, 4, 205, 26});
}

void ShareTab::goTo(const ScreenArea &label) const {
  const ScreenArea content = onScreen({0, 0, 554, 377});
  const std::string before = settledPicture(content);
  click(label);
  EXPECT_TRUE(waitFor([&] { return picture(content) != before; }));
  EXPECT_NE(settledPicture(content), "");
}

bool ShareTab::seesRows(int count) const {
  // Where there is nothing there is one colour, of which picture makes "".
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
  return clickAndSeeSheet(removeIn(row)) && waitForKeyboard();
}

bool ShareTab::seesSuccess() const {
  return waitFor(successIsOnScreen) && waitForWindows(1);
}
