#include "platform/gnustep/shaping/UserCharacters.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace user_characters {
namespace {

struct Range {
  char16_t first;
  char16_t last;
};

/// What the platform draws right by itself, above Latin: punctuation, currencies, letterlike
/// symbols and arrows. U+200B to U+200F and U+2028 to U+202F are not visible themselves and work on
/// their neighbours.
constexpr char16_t kEndOfLatin = u'\u0300';
constexpr Range kSimple[] = {{u'\u1E00', u'\u1EFF'}, {u'\u2010', u'\u2027'},
                             {u'\u2030', u'\u205E'}, {u'\u20A0', u'\u20BF'},
                             {u'\u2100', u'\u21FF'}, {u'\uFFFC', u'\uFFFD'}};

bool isSimple(char16_t unit) {
  if (unit < kEndOfLatin) return true;
  return std::any_of(std::begin(kSimple), std::end(kSimple), [unit](const Range &range) {
    return range.first <= unit && unit <= range.last;
  });
}

using Iterator = std::unique_ptr<icu::BreakIterator>;

/// An iterator over a text that outlives it.
class Text {
 public:
  explicit Text(std::u16string_view text)
      : string_(false, text.data(), static_cast<std::int32_t>(text.size())) {}

  Iterator characters() const {
    UErrorCode status = U_ZERO_ERROR;
    return over(
        Iterator(icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status)));
  }

  Iterator lines() const {
    UErrorCode status = U_ZERO_ERROR;
    return over(Iterator(icu::BreakIterator::createLineInstance(icu::Locale::getRoot(), status)));
  }

 private:
  Iterator over(Iterator iterator) const {
    if (iterator != nullptr) iterator->setText(string_);
    return iterator;
  }

  icu::UnicodeString string_;
};

/// The part of a text around an index in which the boundaries next to it are sure to be found. A
/// line feed is always a character of its own.
std::u16string_view lineAround(std::u16string_view text, std::size_t index, std::size_t &offset) {
  const std::size_t before = index == 0 ? std::u16string_view::npos : text.rfind(u'\n', index - 1);
  offset = before == std::u16string_view::npos ? 0 : before;
  const std::size_t after = text.find(u'\n', index);
  const std::size_t end = after == std::u16string_view::npos ? text.size() : after + 1;
  return text.substr(offset, end - offset);
}

UChar32 codePointAt(std::u16string_view text, std::size_t index) {
  UChar32 codePoint = 0;
  U16_GET(text, 0, index, text.size(), codePoint);
  return codePoint;
}

/// Whether the marks of a script's letters are typed, and deleted, one by one.
bool hasMarksOfTheirOwn(UChar32 letter) {
  UErrorCode status = U_ZERO_ERROR;
  switch (uscript_getScript(letter, &status)) {
    case USCRIPT_COMMON:
    case USCRIPT_CYRILLIC:
    case USCRIPT_GREEK:
    case USCRIPT_HAN:
    case USCRIPT_HANGUL:
    case USCRIPT_HIRAGANA:
    case USCRIPT_INHERITED:
    case USCRIPT_KATAKANA:
    case USCRIPT_LATIN:
      return false;
    default:
      return true;
  }
}

}  // namespace

bool needShaping(std::u16string_view text) {
  return !std::all_of(text.begin(), text.end(), isSimple);
}

std::size_t beginningAt(std::u16string_view text, std::size_t index) {
  if (index >= text.size()) return text.size();
  std::size_t offset = 0;
  const Text line(lineAround(text, index, offset));
  const Iterator iterator = line.characters();
  if (iterator == nullptr) return index;
  // Not preceding(), which would begin before the code point whose second unit is at the index.
  iterator->following(static_cast<std::int32_t>(index - offset));
  return offset + static_cast<std::size_t>(iterator->previous());
}

std::size_t endAfter(std::u16string_view text, std::size_t index) {
  if (index >= text.size()) return text.size();
  std::size_t offset = 0;
  const Text line(lineAround(text, index, offset));
  const Iterator iterator = line.characters();
  if (iterator == nullptr) return index + 1;
  return offset +
         static_cast<std::size_t>(iterator->following(static_cast<std::int32_t>(index - offset)));
}

std::size_t deletionBefore(std::u16string_view text, std::size_t index) {
  if (index == 0) return 0;
  const std::size_t character = beginningAt(text, index - 1);
  if (!hasMarksOfTheirOwn(codePointAt(text, character))) return character;
  std::size_t codePoint = index;
  U16_BACK_1(text, 0, codePoint);
  return codePoint;
}

std::vector<bool> boundaries(std::u16string_view text) {
  std::vector<bool> result(text.size() + 1, false);
  const Text whole(text);
  const Iterator iterator = whole.characters();
  if (iterator == nullptr) return std::vector<bool>(text.size() + 1, true);
  for (auto i = iterator->first(); i != icu::BreakIterator::DONE; i = iterator->next()) {
    result[static_cast<std::size_t>(i)] = true;
  }
  return result;
}

std::size_t lineBreakBefore(std::u16string_view text, std::size_t first, std::size_t index) {
  if (index >= text.size()) return text.size();
  const Text whole(text);
  const Iterator iterator = whole.lines();
  if (iterator == nullptr) return first;
  const auto place = static_cast<std::int32_t>(index);
  const std::int32_t found = iterator->isBoundary(place) ? place : iterator->preceding(place);
  return std::max(first, static_cast<std::size_t>(std::max(found, std::int32_t{0})));
}

}  // namespace user_characters
