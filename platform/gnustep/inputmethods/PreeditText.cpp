#include "platform/gnustep/inputmethods/PreeditText.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>

namespace {

constexpr UChar32 kReplacement = 0xFFFD;

}  // namespace

void PreeditText::replace(std::size_t first, std::size_t length, std::u32string_view text,
                          std::size_t caret) {
  const std::size_t begin = std::min(first, text_.size());
  text_.replace(begin, std::min(length, text_.size() - begin), text);
  caret_ = std::min(caret, text_.size());
}

void PreeditText::clear() {
  text_.clear();
  caret_ = 0;
}

std::string PreeditText::utf8() const {
  std::string result;
  for (const char32_t codePoint : text_) {
    std::uint8_t bytes[U8_MAX_LENGTH];
    std::size_t count = 0;
    U8_APPEND_UNSAFE(bytes, count, codePoint);
    result.append(reinterpret_cast<const char *>(bytes), count);
  }
  return result;
}

std::size_t PreeditText::caret() const {
  std::size_t units = 0;
  for (std::size_t i = 0; i < caret_; ++i) units += U16_LENGTH(text_[i]);
  return units;
}

std::u32string codePointsOf(std::string_view utf8) {
  std::u32string result;
  for (std::size_t i = 0; i < utf8.size();) {
    UChar32 codePoint = 0;
    U8_NEXT(utf8, i, utf8.size(), codePoint);
    result.push_back(static_cast<char32_t>(codePoint < 0 ? kReplacement : codePoint));
  }
  return result;
}
