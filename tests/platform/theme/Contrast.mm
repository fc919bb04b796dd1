#include "tests/platform/theme/Contrast.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <vector>

#import "platform/gnustep/theme/QuietTheme.h"

namespace {

/// The part of a channel (0 to 255) in the relative luminance, as WCAG 2 defines it.
double linear(theme::Rgb channel) {
  const double part = (channel & 0xFF) / 255.0;
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminanceOf(theme::Rgb color) {
  return 0.2126 * linear(color >> 16) + 0.7152 * linear(color >> 8) + 0.0722 * linear(color);
}

void show(const platform::DesktopLook &look) {
  platform::setCurrentLook(look);
  showCurrentLook();
}

}  // namespace

double contrastOf(theme::Rgb one, theme::Rgb other) {
  const double first = luminanceOf(one);
  const double second = luminanceOf(other);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

double contrastIn(const Picture &picture) {
  // More than a stray pixel, and fewer than the strokes of a letter have.
  constexpr int kPixels = 5;
  std::map<theme::Rgb, int> counts;
  for (theme::Rgb pixel : picture.pixels()) ++counts[pixel];
  const auto ground = std::max_element(counts.begin(), counts.end(), [](auto &one, auto &other) {
    return one.second < other.second;
  });
  std::map<double, int, std::greater<>> contrasts;
  for (const auto &[color, count] : counts) contrasts[contrastOf(color, ground->first)] += count;
  int seen = 0;
  for (const auto &[contrast, count] : contrasts) {
    seen += count;
    if (seen >= kPixels) return contrast;
  }
  return 1;
}

ShownLook::ShownLook(const platform::DesktopLook &look) {
  show(look);
}

ShownLook::~ShownLook() {
  show({});
}
