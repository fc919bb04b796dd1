#pragma once

#include "platform/gnustep/desktop/DesktopLook.h"
#include "tests/platform/theme/Picture.h"

/// What everybody can read: the least contrast of a text with its ground (WCAG 2, level AA).
constexpr double kReadable = 4.5;

/// The ratio of the relative luminances of two colours, from 1 to 21.
double contrastOf(theme::Rgb one, theme::Rgb other);

/// The contrast of the text in a picture that has nothing but it and its ground: of the most
/// frequent colour with those that differ most from it. About 1 where there is no text.
double contrastIn(const Picture &picture);

/// Shows the application in a look of the desktop, and restores the usual one at its end.
class ShownLook {
 public:
  explicit ShownLook(const platform::DesktopLook &look);
  ~ShownLook();
  ShownLook(const ShownLook &) = delete;
  ShownLook &operator=(const ShownLook &) = delete;
};
