#include "windows/Recipients.h"

#include <algorithm>

#include "tests/fuzz/Input.h"
#include "tests/fuzz/Target.h"
#include "text/UTF16.h"

namespace {

bool isLetter(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

/// Letters, digits and the marks.
bool isMadeOf(std::u16string_view text, std::u16string_view marks) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [&](char16_t unit) {
    return isLetter(unit) || (unit >= u'0' && unit <= u'9') || marks.find(unit) != marks.npos;
  });
}

/// The pattern of addresses, without a regular expression.
bool isAddress(std::u16string_view text) {
  const auto at = text.find(u'@');
  const auto dot = text.rfind(u'.');
  if (at == text.npos || dot == text.npos || dot < at) return false;
  const std::u16string_view top = text.substr(dot + 1);
  return isMadeOf(text.substr(0, at), u"._%+-") &&
         isMadeOf(text.substr(at + 1, dot - at - 1), u".-") && top.size() >= 2 && top.size() <= 4 &&
         std::all_of(top.begin(), top.end(), isLetter);
}

/// The first piece between commas that is none, the whole text's size when all are.
std::size_t placeOfFirstInvalid(std::u16string_view text) {
  for (std::size_t start = 0;;) {
    const auto end = text.find(u',', start);
    if (!isAddress(text.substr(start, end - start))) return start;
    if (end == text.npos) return text.size() + 1;
    start = end + 1;
  }
}

}  // namespace

/// input: the text of the field.
void fuzz::Recipients(std::string_view input) {
  NSString *const entered = stringFrom(input);
  const std::u16string units = unitsFrom(input);
  promise(isValidAddress(entered) == isAddress(units), "an address is what the pattern says");

  std::u16string joined;
  for (NSString *recipient in recipientsIn(entered)) joined += utf16::unitsOf(recipient) + u',';
  promise(joined == units + u',', "the recipients joined are what was entered");

  NSString *const invalid = firstInvalidRecipient(entered);
  const std::size_t place = placeOfFirstInvalid(units);
  promise((invalid == nil) == (place > units.size()), "one is invalid when one is no address");
  if (invalid == nil) return;
  promise(!isValidAddress(invalid), "the invalid one is no address");
  const std::u16string_view rest = std::u16string_view(units).substr(place);
  promise(rest.starts_with(utf16::unitsOf(invalid)), "the first invalid one is named");
}
