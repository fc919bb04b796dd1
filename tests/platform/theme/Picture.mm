#include "tests/platform/theme/Picture.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kRounding = 3;

int red(theme::Rgb color) {
  return static_cast<int>(color >> 16) & 0xFF;
}

int green(theme::Rgb color) {
  return static_cast<int>(color >> 8) & 0xFF;
}

int blue(theme::Rgb color) {
  return static_cast<int>(color) & 0xFF;
}

bool isNearly(theme::Rgb one, theme::Rgb other) {
  return std::abs(red(one) - red(other)) <= kRounding &&
         std::abs(green(one) - green(other)) <= kRounding &&
         std::abs(blue(one) - blue(other)) <= kRounding;
}

}  // namespace

Picture::Picture(NSView *view) : Picture(view, [view bounds]) {}

Picture::Picture(NSView *view, NSRect part) {
  [[view window] display];
  take(view, part);
}

Picture Picture::onScreen(NSView *view) {
  return onScreen(view, [view bounds]);
}

Picture Picture::onScreen(NSView *view, NSRect part) {
  [[view window] displayIfNeeded];
  Picture picture;
  picture.take(view, part);
  return picture;
}

void Picture::take(NSView *view, NSRect part) {
  @autoreleasepool {
    [view lockFocus];
    NSBitmapImageRep *const bitmap =
        [[[NSBitmapImageRep alloc] initWithFocusedViewRect:part] autorelease];
    [view unlockFocus];
    width_ = static_cast<int>([bitmap pixelsWide]);
    height_ = static_cast<int>([bitmap pixelsHigh]);
    const unsigned char *const bytes = [bitmap bitmapData];
    const NSInteger samples = [bitmap samplesPerPixel];
    for (int y = 0; y < height_; ++y) {
      for (int x = 0; x < width_; ++x) {
        const unsigned char *const pixel = bytes + y * [bitmap bytesPerRow] + x * samples;
        pixels_.push_back(static_cast<theme::Rgb>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]));
      }
    }
  }
}

int Picture::count(theme::Rgb color) const {
  return count([=](theme::Rgb pixel) { return isNearly(pixel, color); });
}

int Picture::count(const Matches &matches) const {
  return static_cast<int>(std::count_if(pixels_.begin(), pixels_.end(), matches));
}

theme::Rgb Picture::at(int x, int y) const {
  return pixels_.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                    static_cast<std::size_t>(x));
}

bool isBluish(theme::Rgb color) {
  constexpr int kClearly = 40;
  return blue(color) - red(color) > kClearly;
}

void PrintTo(const Picture &picture, std::ostream *stream) {
  *stream << "a picture of " << picture.width() << " x " << picture.height() << ", "
          << picture.count(isInk) << " dark and " << picture.count(isBluish) << " blue pixels";
}

bool isWhitish(theme::Rgb color) {
  constexpr int kLight = 0xD0;
  return std::min({red(color), green(color), blue(color)}) > kLight;
}

bool isInk(theme::Rgb color) {
  constexpr int kDark = 0x50;
  return std::max({red(color), green(color), blue(color)}) < kDark;
}
