#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The text that an input method is composing, in whole code points, as an X input context is told
/// of its changes.
class PreeditText {
 public:
  /// Replaces `length` code points from `first` with a text, and sets the caret in the result. What
  /// is beyond the text is cut off: an input method may count on what it has lost.
  void replace(std::size_t first, std::size_t length, std::u32string_view text, std::size_t caret);

  void clear();

  bool isEmpty() const { return text_.empty(); }

  /// In UTF-8.
  std::string utf8() const;

  /// The caret, in UTF-16 units.
  std::size_t caret() const;

 private:
  std::u32string text_;
  std::size_t caret_ = 0;
};

/// The code points of a text in UTF-8; U+FFFD for what is none.
std::u32string codePointsOf(std::string_view utf8);
