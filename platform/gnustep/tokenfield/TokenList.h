#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

/// The rules of a token field's text, without any window. The text is UTF-16; a finished token is
/// one character of it, kTokenMark. All positions and lengths count UTF-16 units.
namespace tokens {

/// The character that stands for a finished token.
constexpr char16_t kTokenMark = 0xFFFC;

/// Whether a character ends a token. Line breaks always do, whatever this says.
using IsTokenizing = std::function<bool(char16_t)>;

struct Range {
  std::size_t location = 0;
  std::size_t length = 0;
  std::size_t end() const { return location + length; }
  bool operator==(const Range &) const = default;
};

/// Whether `character` separates two pieces: a tokenizing character or a line break.
bool separates(char16_t character, const IsTokenizing &isTokenizing);

/// `range` of `text` without the white space at both ends.
Range trimmed(std::u16string_view text, Range range);

/// Splits a list that is pasted or set at every separator and trims the pieces. Empty pieces are
/// included; a text without separators is one piece.
std::vector<Range> pieces(std::u16string_view text, const IsTokenizing &isTokenizing);

/// The run of plain text around `position`, up to the next token or separator on both sides. May be
/// empty.
Range fragmentAt(std::u16string_view text, std::size_t position, const IsTokenizing &isTokenizing);

/// An element of a field's text.
struct Element {
  enum class Kind {
    Token,
    /// Typed text that is not a token yet, trimmed.
    Fragment,
    /// An empty piece that is ended by a separator: the second of two in a row.
    Nothing,
  };
  Kind kind = Kind::Nothing;
  Range range;
  bool operator==(const Element &) const = default;
};

/// The elements of the text in their order. Blank text between two tokens is no element.
std::vector<Element> elements(std::u16string_view text, const IsTokenizing &isTokenizing);

/// The number of tokens in front of `position`.
std::size_t tokensBefore(std::u16string_view text, std::size_t position);

/// The part of "Name<address>" to show to the user: the name, trimmed. The whole text, trimmed,
/// where there is no name.
Range shownPart(std::u16string_view editingText);

}  // namespace tokens
