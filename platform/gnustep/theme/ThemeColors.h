#pragma once

#include <cstdint>

/// The colours of the theme, each for a light and for a dark desktop.
namespace theme {

/// 0xRRGGBB.
using Rgb = std::uint32_t;

/// Whether the colours are those for a dark desktop; false at first. Main thread.
bool isDark();
void setDark(bool isDark);

/// A colour in both looks. Drawing looks it up each time, so that nothing has to be told of a
/// change.
struct Tone {
  Rgb light;
  Rgb dark;

  // NOLINTNEXTLINE(google-explicit-constructor): a colour of the theme stands for what is drawn.
  operator Rgb() const { return isDark() ? dark : light; }
};

// A text has a contrast of at least 4.5 to 1 on whatever it is drawn on, the texts of disabled
// controls and placeholders included: they differ from others by their grounds and lines, too.

constexpr Tone kAccent = {0x0A6CF0, 0x0A6CF0};
constexpr Tone kAccentPressed = {0x0857C2, 0x0857C2};
constexpr Tone kAccentDisabled = {0xD3E3FA, 0x22344F};
constexpr Tone kOnAccent = {0xFFFFFF, 0xFFFFFF};
/// Of the focus ring.
constexpr Tone kFocus = {0x0A6CF0, 0x4C9DFF};

constexpr Tone kWindow = {0xECECEC, 0x2A2A2C};
/// Of fields, lists and texts.
constexpr Tone kSurface = {0xFFFFFF, 0x1E1E20};
constexpr Tone kSurfaceDisabled = {0xF4F4F4, 0x28282A};
constexpr Tone kMenu = {0xFFFFFF, 0x323235};
constexpr Tone kStripe = {0xF5F5F6, 0x252527};

constexpr Tone kButton = {0xFFFFFF, 0x4A4A4D};
constexpr Tone kButtonPressed = {0xDEDEE0, 0x5E5E62};
constexpr Tone kButtonDisabled = {0xF4F4F4, 0x353538};

constexpr Tone kText = {0x1F1F21, 0xEBEBED};
constexpr Tone kTextSecondary = {0x47474C, 0xC2C2C7};
constexpr Tone kTextDisabled = {0x58585D, 0xABABB0};

constexpr Tone kLine = {0xC5C5C8, 0x58585C};
constexpr Tone kLineDisabled = {0xD9D9DB, 0x414144};
constexpr Tone kLineFaint = {0xDFDFE1, 0x3F3F42};
/// The shadow at the lower edge of a button.
constexpr Tone kLineShadow = {0xB0B0B4, 0x1A1A1C};
/// Round a check box or radio button that is off.
constexpr Tone kLineMark = {0xB0B0B4, 0x77777C};

constexpr Tone kBox = {0xE4E4E5, 0x313133};
constexpr Tone kBoxLine = {0xD3D3D5, 0x424245};
constexpr Tone kSegments = {0xDDDDDF, 0x3A3A3D};
constexpr Tone kSegmentChosen = {0xFFFFFF, 0x5E5E62};
constexpr Tone kTrack = {0xD8D8DB, 0x47474B};

constexpr Tone kSelectedText = {0xB3D4FC, 0x2C4F82};
constexpr Tone kSelection = {0xD9E8FD, 0x2A456B};
constexpr Tone kKnob = {0xC1C1C4, 0x6A6A6F};
constexpr Tone kKnobPressed = {0x8E8E93, 0x929297};
constexpr Tone kToolTip = {0xF7F7F7, 0x3A3A3D};

constexpr Tone kToken = {0xD9E8FC, 0x2B4468};
constexpr Tone kTokenText = {0x1A3F78, 0xD5E5FD};
constexpr Tone kTokenDisabled = {0xECECEC, 0x38383B};

/// The alpha value of the focus ring.
constexpr double kFocusRingAlpha = 0.5;

}  // namespace theme
