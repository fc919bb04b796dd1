#include "addressbook/CaseFolding.h"

#include <utility>

namespace {

constexpr char16_t kFirstPrintable = u' ';
constexpr char16_t kLastPrintable = u'~';
constexpr std::size_t kUnits = 0x10000;

}  // namespace

CaseFolding::CaseFolding() : first_(kFirstPrintable) {
  for (char16_t unit = kFirstPrintable; unit <= kLastPrintable; ++unit) {
    const bool isSmall = unit >= u'a' && unit <= u'z';
    folded_.push_back(isSmall ? static_cast<char16_t>(unit - u'a' + u'A') : unit);
  }
}

CaseFolding::CaseFolding(std::u16string folded) : first_(0), folded_(std::move(folded)) {}

bool CaseFolding::coversAll() const {
  return folded_.size() == kUnits;
}
