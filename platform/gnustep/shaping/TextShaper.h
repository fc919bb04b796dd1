#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/gnustep/shaping/ShapedGlyphs.h"

/// Joins, combines and orders the characters of a paragraph, and finds fonts for those that the
/// text's own font lacks, with Pango.
namespace text_shaper {

/// A font by which Pango finds its own and the others. The size is in points.
struct Font {
  std::string family;
  int weight = 400;  // of CSS: 400 regular, 700 bold
  bool isItalic = false;
  double size = 0;

  bool operator==(const Font &) const = default;
};

/// A part of the paragraph with one font; it begins where the one before it ends.
struct FontRun {
  std::size_t end = 0;  // in UTF-16 units
  Font font;

  bool operator==(const FontRun &) const = default;
};

/// For each UTF-16 unit of a paragraph its glyph, in logical order: a shaped one for the first unit
/// of what is drawn as one, 0 for those that it is drawn with. Line breaks, other control
/// characters and attachments are left to the platform and have 0.
using Glyphs = std::vector<shaped_glyphs::Glyph>;

/// The glyphs of a paragraph, without or with its line break. The runs cover it. nullptr where
/// Pango is not installed. The results for the last few paragraphs are cached. Between the forms
/// that a character has in several languages the environment's language chooses. Any thread.
std::shared_ptr<const Glyphs> shape(std::u16string_view paragraph,
                                    const std::vector<FontRun> &runs);

/// Whether a unit is a control character or an attachment, for which shape() gives no glyph.
bool isLeftToThePlatform(char16_t unit);

}  // namespace text_shaper
