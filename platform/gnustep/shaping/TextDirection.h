#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// What the Unicode Bidirectional Algorithm says about a paragraph and its lines.
namespace text_direction {

/// Whether a paragraph runs from right to left: by its first strong character (rules P2 and P3). A
/// paragraph with attachments, the tokens of a token field, runs from left to right.
bool isRightToLeft(std::u16string_view paragraph);

/// Whether the level is one of a text from right to left.
constexpr bool isRightToLeft(std::uint8_t level) {
  return level % 2 == 1;
}

/// The order in which the characters of a line are drawn from left to right (rule L2): at each
/// place the index of the character there. `levels` has the embedding level of each character, 0
/// to 126, after trailing spaces were set to that of the paragraph (rule L1).
std::vector<std::size_t> visualOrder(std::span<const std::uint8_t> levels);

}  // namespace text_direction
