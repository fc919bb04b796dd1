#include "text/UTF16.h"

#include <algorithm>

#include "tests/fuzz/Input.h"
#include "tests/fuzz/Target.h"

/// input: the separator, then the text.
void fuzz::SplitString(std::string_view input) {
  NSString *const string = stringFrom(input);
  if ([string length] == 0) return;
  const char16_t separator = [string characterAtIndex:0];
  // No separator is half a pair.
  if (utf16::isHighSurrogate(separator) || utf16::isLowSurrogate(separator)) return;
  const std::u16string text = utf16::unitsOf(wellFormedStringFrom(input)).substr(1);
  NSArray *const pieces = utf16::splitString([string substringFromIndex:1], separator);

  promise([pieces count] ==
              1 + static_cast<NSUInteger>(std::count(text.begin(), text.end(), separator)),
          "one piece more than separators");
  std::u16string joined;
  for (NSString *piece in pieces) {
    const std::u16string part = utf16::unitsOf(piece);
    promise(part.find(separator) == part.npos, "no separator in a piece");
    joined += part + separator;
  }
  joined.pop_back();
  promise(joined == text, "the pieces joined are the text");
}
