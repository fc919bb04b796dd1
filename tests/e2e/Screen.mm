#include "tests/e2e/Screen.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>

#import "tests/e2e/RunningApplication.h"

namespace {

/// How long the button stays pressed. Other programs of the platform lose their first click when
/// the release comes at the same moment.
const std::string kClickSeconds = "0.08";

/// Between two keys: 20 a second.
const std::string kKeyDelayMilliseconds = "50";

/// How long a picture must have stayed the same for the drawing to be over. The application pauses
/// between the parts of a window on a busy machine.
constexpr double kSettledSeconds = 0.1;

const std::string kPointingTool = "/usr/bin/xdotool";

/// Without comparing pixel by pixel: all are the same when each equals the next.
bool hasOneColour(const std::string &pixels) {
  constexpr std::size_t kBytesOfAPixel = 4;
  return pixels.size() <= kBytesOfAPixel ||
         std::memcmp(pixels.data(), pixels.data() + kBytesOfAPixel,
                     pixels.size() - kBytesOfAPixel) == 0;
}

/// Whether one of the windows has the focus.
bool hasFocus(const std::vector<ScreenWindow> &windows) {
  const std::string focus = focusedWindow();
  return std::any_of(windows.begin(), windows.end(),
                     [&](const ScreenWindow &window) { return window.number == focus; });
}

}  // namespace

std::vector<ScreenWindow> windowsOnScreen() {
  return visibleWindowsOf("ContextMenuApp");
}

bool waitForWindows(std::size_t count) {
  return waitFor([&] { return windowsOnScreen().size() == count; });
}

bool waitForKeyboard() {
  return waitFor([] { return hasFocus(windowsOnScreen()); });
}

bool waitForSheet(const ScreenWindow &window) {
  return waitFor([&] {
    auto windows = windowsOnScreen();
    if (windows.size() != 2) return false;
    std::erase_if(windows,
                  [&](const ScreenWindow &shown) { return shown.number == window.number; });
    return windows.size() == 1 && hasFocus(windows);
  });
}

bool clickIntoAlert() {
  if (!waitForWindows(1)) return false;
  const ScreenArea alert = windowsOnScreen().at(0).area;
  if (settledPicture(alert).empty()) return false;
  // Beside its icon and above its buttons.
  clickAt(alert.x + 10, alert.y + alert.height / 2);
  return waitForKeyboard();
}

void pressKeys(const std::vector<std::string> &names) {
  std::vector<std::string> command = {kPointingTool, "key"};
  command.insert(command.end(), names.begin(), names.end());
  outputOf(command);
}

void typeText(const std::string &text) {
  outputOf({kPointingTool, "type", "--delay", kKeyDelayMilliseconds, "--", text});
}

bool copyInAnotherProgram(const std::string &text) {
  // The program keeps running to provide the text, until another one copies something.
  ChildProcess copying(
      {"/bin/sh", "-c",
       "printf %s \"$1\" | /usr/bin/xclip -selection clipboard -in >/dev/null 2>&1", "sh", text});
  return copying.waitForEnd() == 0;
}

void clickAt(int x, int y) {
  outputOf({kPointingTool, "mousemove", std::to_string(x), std::to_string(y), "mousedown", "1",
            "sleep", kClickSeconds, "mouseup", "1"});
}

void moveTo(int x, int y) {
  outputOf({kPointingTool, "mousemove", std::to_string(x), std::to_string(y)});
}

void pressButton() {
  outputOf({kPointingTool, "mousedown", "1"});
}

void releaseButton() {
  outputOf({kPointingTool, "mouseup", "1"});
}

std::string picture(const ScreenArea &area) {
  const std::string pixels = pixelsIn(area);
  if (hasOneColour(pixels)) return "";
  return std::to_string(area.width) + "x" + std::to_string(area.height) + ":" +
         std::to_string(std::hash<std::string>()(pixels));
}

std::string settledPicture(const ScreenArea &area) {
  std::string latest;
  double since = 0;
  const bool settled = waitFor([&] {
    const std::string next = picture(area);
    const double now = detail::secondsNow();
    if (next.empty() || next != latest) since = now;
    latest = next;
    return now - since >= kSettledSeconds;
  });
  return settled ? latest : "";
}
