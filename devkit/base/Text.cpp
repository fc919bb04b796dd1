#include "devkit/base/Text.h"

#include <charconv>

namespace devkit {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

unsigned byteAt(std::string_view text, std::size_t position) {
  return position < text.size() ? static_cast<unsigned char>(text[position]) : 0;
}

/// The value of two hexadecimal digits, or -1.
int hexByte(std::string_view digits) {
  int value = 0;
  if (digits.size() != 2) return -1;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + 2, value, 16);
  return error == std::errc() && end == digits.data() + 2 && value >= 0 ? value : -1;
}

}  // namespace

std::size_t utf8CharacterLength(std::string_view text) {
  if (text.empty()) return 0;
  const unsigned first = byteAt(text, 0);
  if (first < 0x80) return 1;
  // The second byte's range excludes overlong forms (E0, F0), surrogates (ED) and what lies beyond
  // the last character (F4).
  struct Row {
    unsigned from, to;
    std::size_t length;
    unsigned secondFrom, secondTo;
  };
  static constexpr Row kRows[] = {{0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
                                  {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F},
                                  {0xEE, 0xEF, 3, 0x80, 0xBF}, {0xF0, 0xF0, 4, 0x90, 0xBF},
                                  {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F}};
  for (const auto &row : kRows) {
    if (first < row.from || first > row.to) continue;
    const unsigned second = byteAt(text, 1);
    if (second < row.secondFrom || second > row.secondTo) return 0;
    for (std::size_t position = 2; position < row.length; ++position)
      if ((byteAt(text, position) & 0xC0) != 0x80) return 0;
    return row.length;
  }
  return 0;
}

std::string validUtf8(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const auto length = utf8CharacterLength(text);
    result += length ? text.substr(0, length) : kReplacement;
    text.remove_prefix(length ? length : 1);
  }
  return result;
}

std::string percentDecoded(std::string_view escaped) {
  std::string bytes;
  bytes.reserve(escaped.size());
  for (std::size_t position = 0; position < escaped.size(); ++position) {
    const int value = escaped[position] == '%' ? hexByte(escaped.substr(position + 1, 2)) : -1;
    if (value < 0) {
      bytes += escaped[position];
      continue;
    }
    bytes += static_cast<char>(value);
    position += 2;
  }
  return validUtf8(bytes);
}

}  // namespace devkit
