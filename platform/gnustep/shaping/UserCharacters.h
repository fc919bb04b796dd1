#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

/// What a person takes for one character of a text, which can be several UTF-16 units: a letter
/// with its marks, a flag, a family of emoji. Unicode calls it an extended grapheme cluster.
namespace user_characters {

/// Whether the platform's own glyphs are wrong, or need not exist, for a text: one beyond Latin
/// letters and common punctuation, with letters that join, combine, run from right to left or are
/// outside the basic plane.
bool needShaping(std::u16string_view text);

/// The beginning of the character that contains the unit at `index`, or the end of the text.
std::size_t beginningAt(std::u16string_view text, std::size_t index);

/// The end of the character before or at which `index` lies: the first boundary after it. The end
/// of the text for an index that is not before it.
std::size_t endAfter(std::u16string_view text, std::size_t index);

/// Where a deletion backward from `index` begins. A whole character, but only the last code point
/// in scripts whose marks are typed one by one (Arabic, Hebrew, Devanagari, Thai and others). 0 for
/// an index of 0.
std::size_t deletionBefore(std::u16string_view text, std::size_t index);

/// Whether a caret can be at each index, from 0 to the length of the text.
std::vector<bool> boundaries(std::u16string_view text);

/// The last place at or before `index`, and after `first`, at which a line may be broken, by the
/// rules of the text's script, with a dictionary for Thai; `first` where there is none.
std::size_t lineBreakBefore(std::u16string_view text, std::size_t first, std::size_t index);

}  // namespace user_characters
