#include "platform/gnustep/tokenfield/PillText.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>

#include <memory>
#include <vector>

namespace pill_text {
namespace {

constexpr std::u16string_view kEllipsis = u"\u2026";

/// The beginnings of all composed characters, and the end of the text.
std::vector<std::size_t> characterBoundaries(std::u16string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::BreakIterator> iterator(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  std::vector<std::size_t> boundaries;
  if (U_FAILURE(status)) return {0, text.size()};
  const icu::UnicodeString copy(text.data(), static_cast<std::int32_t>(text.size()));
  iterator->setText(copy);
  for (auto i = iterator->first(); i != icu::BreakIterator::DONE; i = iterator->next()) {
    boundaries.push_back(static_cast<std::size_t>(i));
  }
  return boundaries;
}

}  // namespace

std::u16string onOneLine(std::u16string_view text) {
  std::u16string result(text);
  for (char16_t &unit : result) {
    // Format characters stay: they join letters and emoji.
    const bool isControl = u_charType(unit) == U_CONTROL_CHAR;
    if (isControl || unit == 0x2028 || unit == 0x2029) unit = u' ';
  }
  return result;
}

std::u16string truncatedInTheMiddle(std::u16string_view text, const Fits &fits) {
  if (fits(text)) return std::u16string(text);
  const std::vector<std::size_t> boundaries = characterBoundaries(text);
  const std::size_t count = boundaries.empty() ? 0 : boundaries.size() - 1;
  const auto keeping = [&](std::size_t characters) {
    const std::size_t front = (characters + 1) / 2;
    const std::size_t back = characters - front;
    std::u16string result(text.substr(0, boundaries[front]));
    result += kEllipsis;
    result += text.substr(boundaries[count - back]);
    return result;
  };
  if (count == 0) return std::u16string(kEllipsis);
  std::size_t fitting = 0;
  std::size_t tooMany = count;
  while (tooMany - fitting > 1) {
    const std::size_t middle = (fitting + tooMany) / 2;
    (fits(keeping(middle)) ? fitting : tooMany) = middle;
  }
  return keeping(fitting);
}

}  // namespace pill_text
