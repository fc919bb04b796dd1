#include "tests/e2e/Screen.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <sstream>

#import "tests/e2e/RunningApplication.h"

namespace {

/// How long a finger stays on the button. Other programs of the platform lose their first click
/// when the release comes at the same moment.
const std::string kClickSeconds = "0.08";

/// Between two keys: 20 a second.
const std::string kKeyDelayMilliseconds = "50";

/// How many times a picture must be like the one before it for the drawing to be over. The
/// application pauses between the parts of a window on a busy machine.
constexpr int kAlikePictures = 2;

const std::string kPointingTool = "/usr/bin/xdotool";

std::vector<std::string> linesOf(const std::string &output) {
  std::vector<std::string> lines;
  std::istringstream stream(output);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::vector<std::string> numbersOnScreen() {
  while (true) {
    // By the class that the platform gives its windows: their process is not noted on them.
    ChildProcess search(
        {kPointingTool, "search", "--onlyvisible", "--classname", "ContextMenuApp"});
    const bool found = search.waitForEnd() == 0;
    const std::string output = search.output();
    // It gives up when any window, the window manager's for one, ends while it looks at it.
    if (output.find("X Error") != std::string::npos) continue;
    return found ? linesOf(output) : std::vector<std::string>();
  }
}

/// From lines "NAME=VALUE".
std::map<std::string, int> valuesIn(const std::string &output) {
  std::map<std::string, int> values;
  for (const std::string &line : linesOf(output)) {
    const auto equals = line.find('=');
    if (equals == std::string::npos) continue;
    values[line.substr(0, equals)] = std::atoi(line.c_str() + equals + 1);
  }
  return values;
}

std::string cropOf(const ScreenArea &area) {
  return std::to_string(area.width) + "x" + std::to_string(area.height) + "+" +
         std::to_string(area.x) + "+" + std::to_string(area.y);
}

bool hasOneColour(const std::string &pixels) {
  constexpr std::size_t kBytesOfAPixel = 3;
  for (std::size_t at = kBytesOfAPixel; at < pixels.size(); at += kBytesOfAPixel) {
    if (pixels.compare(at, kBytesOfAPixel, pixels, 0, kBytesOfAPixel) != 0) return false;
  }
  return true;
}

}  // namespace

std::vector<ScreenWindow> windowsOnScreen() {
  std::vector<ScreenWindow> windows;
  for (const std::string &number : numbersOnScreen()) {
    auto geometry = valuesIn(outputOf({kPointingTool, "getwindowgeometry", "--shell", number}));
    if (geometry.empty()) continue;  // it has been closed meanwhile
    const auto title = linesOf(outputOf({kPointingTool, "getwindowname", number}));
    windows.push_back({number,
                       title.empty() ? "" : title.front(),
                       {geometry["X"], geometry["Y"], geometry["WIDTH"], geometry["HEIGHT"]}});
  }
  return windows;
}

bool waitForWindows(std::size_t count) {
  return waitFor([&] { return numbersOnScreen().size() == count; });
}

bool waitForKeyboard() {
  return waitFor([] {
    const auto focus = linesOf(outputOf({kPointingTool, "getwindowfocus"}));
    const auto numbers = numbersOnScreen();
    return !focus.empty() &&
           std::find(numbers.begin(), numbers.end(), focus.front()) != numbers.end();
  });
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
  // The program stays behind to hand the text out, until another one copies something.
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
  const std::string pixels = outputOf({"/usr/bin/import", "-silent", "-window", "root", "-crop",
                                       cropOf(area), "+repage", "-depth", "8", "rgb:-"});
  if (hasOneColour(pixels)) return "";
  return cropOf(area) + ":" + std::to_string(std::hash<std::string>()(pixels));
}

std::string settledPicture(const ScreenArea &area) {
  std::string latest;
  int alike = 0;
  const bool settled = waitFor([&] {
    const std::string next = picture(area);
    alike = !next.empty() && next == latest ? alike + 1 : 0;
    latest = next;
    return alike == kAlikePictures;
  });
  return settled ? latest : "";
}
