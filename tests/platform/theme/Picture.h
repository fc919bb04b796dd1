#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <ostream>
#include <vector>

#include "platform/gnustep/theme/ThemeColors.h"

/// The pixels of a view in a window on the screen.
class Picture {
 public:
  /// Draws the view's whole window and reads the pixels of the view, or of `part` of it.
  explicit Picture(NSView *view);
  Picture(NSView *view, NSRect part);

  /// The view as it is displayed, without drawing more than is marked for display.
  static Picture onScreen(NSView *view);
  static Picture onScreen(NSView *view, NSRect part);

  using Matches = std::function<bool(theme::Rgb)>;

  int width() const { return width_; }
  int height() const { return height_; }

  /// The number of pixels of that colour, with a tolerance for rounding.
  int count(theme::Rgb color) const;
  int count(const Matches &matches) const;
  bool shows(theme::Rgb color) const { return count(color) > 0; }

  /// The pixel in that column and row, from the upper left.
  theme::Rgb at(int x, int y) const;

  /// All of them, row by row.
  const std::vector<theme::Rgb> &pixels() const { return pixels_; }

  bool operator==(const Picture &other) const = default;

 private:
  Picture() = default;
  void take(NSView *view, NSRect part);

  int width_ = 0;
  int height_ = 0;
  std::vector<theme::Rgb> pixels_;
};

/// A mixture with the accent colour, as in the focus ring.
bool isBluish(theme::Rgb color);

/// What GoogleTest shows of a picture.
void PrintTo(const Picture &picture, std::ostream *stream);

/// Light enough for text on the accent colour.
bool isWhitish(theme::Rgb color);

/// Dark as text is that is not disabled.
bool isInk(theme::Rgb color);
