#include <algorithm>

#include "tests/fuzz/Input.h"
#include "tests/fuzz/Target.h"
#include "text/TextConversion.h"
#include "text/UTF16.h"

namespace {

constexpr std::size_t kLongest = 255;

bool isControl(char16_t unit) {
  return unit < u' ' || (unit >= 0x7F && unit < 0xA0) || (unit >= 0x2028 && unit <= 0x202E) ||
         (unit >= 0x2066 && unit <= 0x2069);
}

}  // namespace

/// input: the name of a file.
void fuzz::WindowTitles(std::string_view input) {
  NSString *const title = windowTitle(stringFrom(input));
  const std::u16string name = unitsFrom(input);
  const bool hasLetter = std::any_of(name.begin(), name.end(),
                                     [](char16_t unit) { return unit > u' ' && unit < 0x7F; });
  promise(title != nil || !hasLetter, "a name that can be read has a title");
  if (title == nil) return;
  const std::u16string units = utf16::unitsOf(title);
  promise(!units.empty(), "a title is not empty");
  promise(units.size() <= kLongest, "a title is no longer than a name may be");
  promise(std::none_of(units.begin(), units.end(), isControl),
          "nothing in a title breaks or turns its line");
  promise(units == utf16::wellFormed(units), "no pair is torn");
  promise([windowTitle(title) isEqualToString:title], "a title is its own title");
}
