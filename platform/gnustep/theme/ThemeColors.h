#pragma once

#include <cstdint>

/// The colours of the theme, as 0xRRGGBB. A quiet light grey, white surfaces, one accent.
namespace theme {

using Rgb = std::uint32_t;

constexpr Rgb kAccent = 0x0A6CF0;
constexpr Rgb kAccentPressed = 0x0857C2;
constexpr Rgb kAccentDisabled = 0xA9C9F5;
constexpr Rgb kOnAccent = 0xFFFFFF;

constexpr Rgb kWindow = 0xECECEC;
constexpr Rgb kSurface = 0xFFFFFF;
constexpr Rgb kSurfaceDisabled = 0xF4F4F4;
constexpr Rgb kSurfacePressed = 0xDEDEE0;
constexpr Rgb kStripe = 0xF5F5F6;

constexpr Rgb kText = 0x1F1F21;
constexpr Rgb kTextSecondary = 0x5F5F64;
constexpr Rgb kTextDisabled = 0x9C9CA1;

constexpr Rgb kLine = 0xC5C5C8;
constexpr Rgb kLineDisabled = 0xD9D9DB;
constexpr Rgb kLineFaint = 0xDFDFE1;
/// The shadow at the lower edge of a button.
constexpr Rgb kLineShadow = 0xB0B0B4;

constexpr Rgb kBox = 0xE4E4E5;
constexpr Rgb kBoxLine = 0xD3D3D5;
constexpr Rgb kSegments = 0xDDDDDF;
constexpr Rgb kTrack = 0xD8D8DB;

constexpr Rgb kSelectedText = 0xB3D4FC;
constexpr Rgb kSelection = 0xD9E8FD;
constexpr Rgb kKnob = 0xC1C1C4;
constexpr Rgb kKnobPressed = 0x8E8E93;
constexpr Rgb kToolTip = 0xF7F7F7;

/// The alpha value of the focus ring.
constexpr double kFocusRingAlpha = 0.5;

}  // namespace theme
