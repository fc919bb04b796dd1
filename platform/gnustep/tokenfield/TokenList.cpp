#include "platform/gnustep/tokenfield/TokenList.h"

#include <algorithm>

namespace tokens {
namespace {

constexpr std::u16string_view kLineBreaks = u"\n\r\f\v\u0085\u2028\u2029";
constexpr std::u16string_view kSpaces = u" \t\u00A0\u1680\u202F\u205F\u3000";

bool isLineBreak(char16_t character) {
  return kLineBreaks.find(character) != std::u16string_view::npos;
}

bool isBlank(char16_t character) {
  const bool isTypographic = character >= 0x2000 && character <= 0x200A;
  return isTypographic || isLineBreak(character) ||
         kSpaces.find(character) != std::u16string_view::npos;
}

/// Collects the elements while the text is read from left to right.
class Reader {
 public:
  explicit Reader(std::u16string_view text) : text_(text) {}

  void token(std::size_t position) {
    endRun(position, false);
    elements_.push_back({Element::Kind::Token, {position, 1}});
  }

  void separator(std::size_t position) { endRun(position, true); }

  std::vector<Element> finish() {
    endRun(text_.size(), false);
    return std::move(elements_);
  }

 private:
  void endRun(std::size_t position, bool bySeparator) {
    const Range run = trimmed(text_, {start_, position - start_});
    if (run.length > 0) {
      elements_.push_back({Element::Kind::Fragment, run});
    } else if (bySeparator) {
      elements_.push_back({Element::Kind::Nothing, {position, 1}});
    }
    start_ = position + 1;
  }

  std::u16string_view text_;
  std::size_t start_ = 0;
  std::vector<Element> elements_;
};

}  // namespace

bool separates(char16_t character, const IsTokenizing &isTokenizing) {
  return isLineBreak(character) || isTokenizing(character);
}

Range trimmed(std::u16string_view text, Range range) {
  std::size_t begin = range.location;
  std::size_t end = range.end();
  while (begin < end && isBlank(text[begin])) ++begin;
  while (end > begin && isBlank(text[end - 1])) --end;
  return {begin, end - begin};
}

std::vector<Range> pieces(std::u16string_view text, const IsTokenizing &isTokenizing) {
  std::vector<Range> result;
  std::size_t start = 0;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    if (i < text.size() && !separates(text[i], isTokenizing)) continue;
    result.push_back(trimmed(text, {start, i - start}));
    start = i + 1;
  }
  return result;
}

Range fragmentAt(std::u16string_view text, std::size_t position, const IsTokenizing &isTokenizing) {
  const auto isBoundary = [&](char16_t character) {
    return character == kTokenMark || separates(character, isTokenizing);
  };
  std::size_t begin = std::min(position, text.size());
  std::size_t end = begin;
  while (begin > 0 && !isBoundary(text[begin - 1])) --begin;
  while (end < text.size() && !isBoundary(text[end])) ++end;
  return {begin, end - begin};
}

std::vector<Element> elements(std::u16string_view text, const IsTokenizing &isTokenizing) {
  Reader reader(text);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == kTokenMark) {
      reader.token(i);
    } else if (separates(text[i], isTokenizing)) {
      reader.separator(i);
    }
  }
  return reader.finish();
}

std::size_t tokensBefore(std::u16string_view text, std::size_t position) {
  const auto front = text.substr(0, position);
  return static_cast<std::size_t>(std::count(front.begin(), front.end(), kTokenMark));
}

Range shownPart(std::u16string_view editingText) {
  const auto bracket = editingText.find(u'<');
  if (bracket != std::u16string_view::npos) {
    const Range name = trimmed(editingText, {0, bracket});
    if (name.length > 0) return name;
  }
  return trimmed(editingText, {0, editingText.size()});
}

}  // namespace tokens
