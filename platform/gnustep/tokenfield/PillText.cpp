#include "platform/gnustep/tokenfield/PillText.h"

#include <unicode/brkiter.h>
#include <unicode/ubidi.h>
#include <unicode/uchar.h>
#include <unicode/ushape.h>

#include <memory>
#include <vector>

namespace pill_text {
namespace {

constexpr std::u16string_view kEllipsis = u"\u2026";

std::u16string withoutControls(std::u16string_view text) {
  std::u16string result(text);
  for (char16_t &unit : result) {
    if (u_iscntrl(unit) || unit == 0x2028 || unit == 0x2029) unit = u' ';
  }
  return result;
}

std::u16string joined(const std::u16string &text) {
  std::u16string result(text.size(), u'\0');
  UErrorCode status = U_ZERO_ERROR;
  // With the same length, so that letters and their shaped forms correspond one to one.
  const std::int32_t length = u_shapeArabic(
      text.data(), static_cast<std::int32_t>(text.size()), result.data(),
      static_cast<std::int32_t>(result.size()),
      U_SHAPE_LETTERS_SHAPE | U_SHAPE_LENGTH_FIXED_SPACES_NEAR | U_SHAPE_TEXT_DIRECTION_LOGICAL,
      &status);
  if (U_FAILURE(status)) return text;
  result.resize(static_cast<std::size_t>(length));
  return result;
}

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

std::u16string inScreenOrder(std::u16string_view text) {
  std::u16string clean = withoutControls(text);
  const std::unique_ptr<UBiDi, decltype(&ubidi_close)> bidi(ubidi_open(), &ubidi_close);
  UErrorCode status = U_ZERO_ERROR;
  ubidi_setPara(bidi.get(), clean.data(), static_cast<std::int32_t>(clean.size()),
                UBIDI_DEFAULT_LTR, nullptr, &status);
  if (U_FAILURE(status)) return clean;
  if (ubidi_getDirection(bidi.get()) == UBIDI_LTR) return clean;
  const std::u16string shaped = joined(clean);
  ubidi_setPara(bidi.get(), shaped.data(), static_cast<std::int32_t>(shaped.size()),
                UBIDI_DEFAULT_LTR, nullptr, &status);
  std::u16string result(shaped.size(), u'\0');
  const std::int32_t length =
      ubidi_writeReordered(bidi.get(), result.data(), static_cast<std::int32_t>(result.size()),
                           UBIDI_DO_MIRRORING | UBIDI_KEEP_BASE_COMBINING, &status);
  if (U_FAILURE(status)) return clean;
  result.resize(static_cast<std::size_t>(length));
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
