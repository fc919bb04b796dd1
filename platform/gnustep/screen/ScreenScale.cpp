#include "platform/gnustep/screen/ScreenScale.h"

#include <X11/Xlib.h>
#include <X11/Xresource.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace platform {
namespace {

constexpr double kDotsAnInch = 96;
constexpr double kMost = 4;
/// Finer steps could not be told apart, and a text size that is a little larger is no scale.
constexpr double kStepsAFactor = 4;

/// 0 for what is no number.
double numberOf(const char *text) {
  const double number = text == nullptr ? 0 : std::strtod(text, nullptr);
  return std::isfinite(number) ? number : 0;
}

double dotsAnInch(const std::string &resources) {
  XrmInitialize();
  XrmDatabase database = XrmGetStringDatabase(resources.c_str());
  char *type = nullptr;
  XrmValue value = {};
  const bool isFound = XrmGetResource(database, "Xft.dpi", "Xft.Dpi", &type, &value) != False;
  const double dots = isFound ? numberOf(value.addr) : 0;
  XrmDestroyDatabase(database);
  return dots;
}

}  // namespace

double screenScale(const std::string &resources, const char *gdkScale) {
  const double scale = std::max(dotsAnInch(resources) / kDotsAnInch, numberOf(gdkScale));
  return std::clamp(std::round(scale * kStepsAFactor) / kStepsAFactor, 1.0, kMost);
}

double screenScaleOfDesktop() {
  Display *const display = XOpenDisplay(nullptr);
  if (display == nullptr) return 1;
  const char *const resources = XResourceManagerString(display);
  const double scale = screenScale(resources == nullptr ? "" : resources, std::getenv("GDK_SCALE"));
  XCloseDisplay(display);
  return scale;
}

}  // namespace platform
