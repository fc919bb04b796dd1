#import "tests/e2e/CopyLinkTab.h"

namespace {

/// Where the tab's content begins in its window, from the left and from the bottom.
constexpr int kTabX = 23;
constexpr int kTabY = 25;
constexpr int kMenuItemHeight = 22;

struct Place {
  int x, y;
};

ScreenArea onScreen(const ScreenArea &frame, const ScreenArea &window) {
  return {window.x + kTabX + frame.x, window.y + window.height - (kTabY + frame.y + frame.height),
          frame.width, frame.height};
}

Place middleOf(const ScreenArea &area) {
  return {area.x + area.width / 2, area.y + area.height / 2};
}

/// Does something and waits until the area looks otherwise.
template <class Action>
void changing(const ScreenArea &area, Action action) {
  const std::string before = picture(area);
  action();
  EXPECT_TRUE(waitFor([&] { return picture(area) != before; }));
}

}  // namespace

bool CopyLinkTab::openTab(const SendCall &call) {
  if (!open(call)) return false;
  window = onlyWindow(call.name);
  return !window.number.empty();
}

void CopyLinkTab::click(const ScreenArea &frame) const {
  const Place place = middleOf(onScreen(frame, window.area));
  clickAt(place.x, place.y);
}

void CopyLinkTab::toggle(const ScreenArea &frame) const {
  changing(onScreen(frame, window.area), [&] { click(frame); });
}

void CopyLinkTab::chooseDownloads(int index) const {
  // The menu opens with the chosen item above the pop-up.
  const ScreenArea popUp = onScreen(kDownloads, window.area);
  ScreenArea item = popUp;
  item.y += index * kMenuItemHeight;
  moveTo(middleOf(popUp).x, middleOf(popUp).y);
  pressButton();
  EXPECT_TRUE(waitForWindows(2));  // the menu is one
  EXPECT_NE(settledPicture(item), "");
  changing(item, [&] { moveTo(middleOf(item).x, middleOf(item).y); });
  releaseButton();
  EXPECT_TRUE(waitForWindows(1));
}

bool CopyLinkTab::pressReturnAndSeeSheet() const {
  if (!waitForKeyboard()) return false;
  pressKeys({"Return"});
  return waitForWindows(2);
}

bool CopyLinkTab::dismissAlert() const {
  if (!waitForKeyboard()) return false;
  pressKeys({"Return"});
  return waitForWindows(1);
}
