#pragma once

#include <cstdint>

// cairo_t, so that those who draw nothing need not include cairo's header.
struct _cairo;

/// The glyphs of texts that the platform cannot draw by itself. A glyph of the platform's cairo
/// backend is the character's code; codes beyond Unicode stand for what Pango made of a character
/// and its neighbours: its glyphs, their font, their places, and the level of its direction. So
/// everything above the backend, from the typesetter to the selection, works with them as with
/// others. A code is valid as long as the process lives; the same result has the same code.
namespace shaped_glyphs {

using Glyph = std::uint32_t;  // NSGlyph

constexpr Glyph kFirst = 0x40000000;
constexpr bool isShaped(Glyph glyph) {
  return glyph >= kFirst && glyph < 2 * kFirst;
}

/// The embedding level; 0 for a glyph of the platform.
std::uint8_t level(Glyph glyph);

/// In points; 0 for a glyph of the platform.
double width(Glyph glyph);

/// Draws the glyph at the context's current point, which moves to its end. Upright, whether the
/// context's y axis points up or down.
void draw(_cairo *context, Glyph glyph);

/// Whether any glyph was made for a text from right to left, so that texts of processes without
/// one need not be searched.
bool anyFromRightToLeft();

/// Whether any glyph was made at all.
bool any();

}  // namespace shaped_glyphs
