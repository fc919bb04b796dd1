#pragma once

#include <cstdint>
#include <mutex>
#include <span>

#include "platform/gnustep/shaping/PangoLibrary.h"
#include "platform/gnustep/shaping/ShapedGlyphs.h"

namespace shaped_glyphs {

/// The glyphs of a cluster and their font, as Pango returns them. No glyphs: a blank.
struct Cluster {
  PangoFont *font = nullptr;
  std::span<const PangoGlyphInfo> glyphs = {};
  /// In points; the sum of the glyphs' widths except where a ligature is divided.
  double width = 0;
};

/// Pango's objects are used by one thread at a time. Held by the caller of intern().
std::mutex &lock();

/// The code of a cluster, for a text of the given embedding level, 0 to 126. A blank without width
/// when there are too many different ones, a quarter of a million.
Glyph intern(const Cluster &cluster, std::uint8_t level);

}  // namespace shaped_glyphs
