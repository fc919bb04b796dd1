#include "devkit/mail/TransferEncoding.h"

#include <algorithm>

#include "devkit/base/Text.h"

namespace devkit {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
/// Without the line end, which the limits of mail do not count.
constexpr std::size_t kLongestLine = 76;
/// An encoded word may have 75 characters; 45 bytes make 60 of base64, and "=?UTF-8?B?" and "?="
/// another 12.
constexpr std::size_t kBytesPerEncodedWord = 45;

std::string base64(std::string_view bytes) {
  constexpr std::string_view alphabet =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string result;
  for (std::size_t position = 0; position < bytes.size(); position += 3) {
    const auto group = bytes.substr(position, 3);
    unsigned value = 0;
    for (std::size_t index = 0; index < 3; ++index)
      value = value << 8 | (index < group.size() ? static_cast<unsigned char>(group[index]) : 0u);
    for (std::size_t index = 0; index < 4; ++index)
      result += index <= group.size() ? alphabet[value >> (18 - 6 * index) & 63] : '=';
  }
  return result;
}

bool isPrintable(char character) {
  return character >= ' ' && character <= '~';
}

bool canStandAsItIs(std::string_view text) {
  // "=?" would be read as the beginning of an encoded word, and blanks at the ends are lost.
  return text.size() <= kLongestLine && std::ranges::all_of(text, isPrintable) &&
         text.find("=?") == text.npos && !text.starts_with(' ') && !text.ends_with(' ');
}

std::string escapedByte(char byte) {
  constexpr char digits[] = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  return {'=', digits[value >> 4], digits[value & 15]};
}

/// One line of a body without its end.
std::string quotedPrintableLine(std::string_view line) {
  std::string result;
  std::size_t column = 0;
  for (std::size_t position = 0; position < line.size(); ++position) {
    const char character = line[position];
    const bool blank = character == ' ' || character == '\t';
    const bool last = position + 1 == line.size();
    // A blank at the end of a line may be lost on the way.
    const bool plain = blank ? !last : isPrintable(character) && character != '=';
    const auto piece = plain ? std::string(1, character) : escapedByte(character);
    // One place is kept for the "=" of a soft line end.
    if (column + piece.size() > kLongestLine - 1) {
      result += "=";
      result += kLineEnd;
      column = 0;
    }
    result += piece;
    column += piece.size();
  }
  return result;
}

}  // namespace

std::string headerText(std::string_view text) {
  std::string line(text);
  for (char &character : line)
    if (static_cast<unsigned char>(character) < ' ' || character == '\x7F') character = ' ';
  if (canStandAsItIs(line)) return line;

  // A character must not be split between two words.
  std::string result;
  std::string_view rest = line;
  while (!rest.empty()) {
    std::size_t size = 0;
    while (size < rest.size()) {
      const auto length = std::max<std::size_t>(1, utf8CharacterLength(rest.substr(size)));
      if (size + length > kBytesPerEncodedWord) break;
      size += length;
    }
    if (!result.empty()) result += "\r\n ";
    result += "=?UTF-8?B?" + base64(rest.substr(0, size)) + "?=";
    rest.remove_prefix(size);
  }
  return result;
}

std::string quotedPrintable(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    // All three line ends occur in pasted text.
    const auto end = text.find_first_of("\r\n");
    result += quotedPrintableLine(text.substr(0, end));
    result += kLineEnd;
    if (end == text.npos) break;
    text.remove_prefix(end + (text.substr(end, 2) == kLineEnd ? 2 : 1));
  }
  return result;
}

}  // namespace devkit
