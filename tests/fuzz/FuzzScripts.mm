#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "platform/gnustep/shaping/TextDirection.h"
#include "platform/gnustep/shaping/TextShaper.h"
#include "platform/gnustep/shaping/UserCharacters.h"
#include "tests/fuzz/Input.h"
#include "tests/fuzz/Target.h"

namespace {

void checkCharacters(const std::u16string &text) {
  const std::vector<bool> boundaries = user_characters::boundaries(text);
  fuzz::promise(boundaries.size() == text.size() + 1 && boundaries.front() && boundaries.back(),
                "a text begins and ends with a boundary");
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t first = user_characters::beginningAt(text, i);
    const std::size_t end = user_characters::endAfter(text, i);
    fuzz::promise(first <= i && i < end && end <= text.size(), "a character contains its units");
    fuzz::promise(user_characters::deletionBefore(text, i + 1) <= i,
                  "a deletion deletes something");
    fuzz::promise(user_characters::lineBreakBefore(text, 0, i) <= i, "a line is not too long");
  }
}

void checkOrder(const text_shaper::Glyphs &glyphs) {
  std::vector<std::uint8_t> levels;
  for (const auto glyph : glyphs) levels.push_back(shaped_glyphs::level(glyph));
  std::vector<std::size_t> order = text_direction::visualOrder(levels);
  std::vector<std::size_t> all(levels.size());
  std::iota(all.begin(), all.end(), 0U);
  std::sort(order.begin(), order.end());
  fuzz::promise(order == all, "each glyph has one place");
}

}  // namespace

/// input: a paragraph, drawn with two fonts, one for each half.
void fuzz::Scripts(std::string_view input) {
  const std::u16string text = unitsFrom(input);
  checkCharacters(text);
  const text_shaper::Font regular = {.family = "DejaVu Sans", .size = 13};
  const text_shaper::Font bold = {.family = "DejaVu Sans", .weight = 700, .size = 13};
  const auto glyphs = text_shaper::shape(text, {{text.size() / 2, regular}, {text.size(), bold}});
  if (glyphs == nullptr) return;
  promise(glyphs->size() == text.size(), "each unit has a glyph or none");
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto glyph = (*glyphs)[i];
    promise(glyph == 0 || shaped_glyphs::isShaped(glyph), "a glyph is a shaped one");
    promise(glyph == 0 || !text_shaper::isLeftToThePlatform(text[i]), "controls have none");
    promise(shaped_glyphs::width(glyph) >= 0, "no glyph moves the next one back");
  }
  checkOrder(*glyphs);
}
