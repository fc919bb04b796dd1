#import "tests/e2e/ScreenTab.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/ChildProcess.h"

namespace {

/// Where the tab's content begins in its window, from the left and from the bottom.
constexpr int kTabX = 22;
constexpr int kTabY = 23;
constexpr int kMenuItemHeight = 22;

struct Place {
  int x, y;
};

Place middleOf(const ScreenArea &area) {
  return {area.x + area.width / 2, area.y + area.height / 2};
}

/// Does something and waits until the picture of the area changes.
template <class Action>
void changing(const ScreenArea &area, Action action) {
  const std::string before = picture(area);
  action();
  EXPECT_TRUE(waitFor([&] { return picture(area) != before; }));
}

}  // namespace

ScreenArea ScreenTab::onScreen(const ScreenArea &frame) const {
  return {window.area.x + kTabX + frame.x,
          window.area.y + window.area.height - (kTabY + frame.y + frame.height), frame.width,
          frame.height};
}

void ScreenTab::click(const ScreenArea &frame) const {
  const Place place = middleOf(onScreen(frame));
  clickAt(place.x, place.y);
}

void ScreenTab::toggle(const ScreenArea &frame) const {
  changing(onScreen(frame), [&] { click(frame); });
}

void ScreenTab::choose(const ScreenArea &popUp, int from, int to) const {
  chooseAtOnce(popUp, from, to);
  EXPECT_TRUE(waitForWindows(1));
}

void ScreenTab::chooseAtOnce(const ScreenArea &popUp, int from, int to) const {
  const ScreenArea closed = onScreen(popUp);
  const ScreenArea item = itemOf(popUp, from, to);
  moveTo(middleOf(closed).x, middleOf(closed).y);
  pressButton();
  EXPECT_TRUE(waitForWindows(2));  // the menu is one
  EXPECT_NE(settledPicture(item), "");
  changing(item, [&] { moveTo(middleOf(item).x, middleOf(item).y); });
  releaseButton();
}

ScreenArea ScreenTab::itemOf(const ScreenArea &popUp, int from, int item) const {
  ScreenArea area = onScreen(popUp);
  area.y += (item - from) * kMenuItemHeight;
  return area;
}

bool ScreenTab::seesOpenMenu(const ScreenArea &item) const {
  if (!waitForWindows(2)) return false;  // the menu is one
  const std::string before = settledPicture(item);
  moveTo(middleOf(item).x, middleOf(item).y);
  return !before.empty() && waitFor([&] { return picture(item) != before; });
}

bool ScreenTab::pressReturnAndSeeSheet() const {
  if (!waitForKeyboard()) return false;
  pressKeys({"Return"});
  return waitForSheet(window);
}

bool ScreenTab::clickAndSeeSheet(const ScreenArea &button) const {
  click(button);
  return waitForSheet(window);
}

bool ScreenTab::dismissAlert() const {
  if (!waitForKeyboard()) return false;
  pressKeys({"Return"});
  return waitForWindows(1);
}
