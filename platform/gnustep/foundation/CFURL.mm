#import "platform/gnustep/foundation/CFURL.h"

#include <string>
#include <string_view>

namespace {

/// The characters that a URL may hold unescaped: letters, digits, and these. "%" is not among them.
constexpr std::u16string_view kLegalPunctuation = u"-_.!~*'();/?:@&=+$,";

bool isLegal(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
         (unit >= u'0' && unit <= u'9') ||
         kLegalPunctuation.find(unit) != std::u16string_view::npos;
}

std::u16string unitsOf(NSString *string) {
  std::u16string units([string length], u'\0');
  [string getCharacters:reinterpret_cast<unichar *>(units.data())
                  range:NSMakeRange(0, units.size())];
  return units;
}

bool isHighSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool isLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The character at `index`, and how many units it takes.
std::pair<char32_t, size_t> characterAt(const std::u16string &units, size_t index) {
  const char16_t unit = units[index];
  if (isHighSurrogate(unit) && index + 1 < units.size() && isLowSurrogate(units[index + 1])) {
    return {0x10000 + ((unit - 0xD800u) << 10) + (units[index + 1] - 0xDC00u), 2};
  }
  const bool alone = isHighSurrogate(unit) || isLowSurrogate(unit);
  return {alone ? char32_t{0xFFFD} : char32_t{unit}, 1};
}

void appendEscapedByte(std::string &escaped, unsigned byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  escaped += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
}

void appendEscaped(std::string &escaped, char32_t c) {
  if (c < 0x80) return appendEscapedByte(escaped, c);
  if (c < 0x800) {
    appendEscapedByte(escaped, 0xC0 | (c >> 6));
  } else {
    if (c < 0x10000) {
      appendEscapedByte(escaped, 0xE0 | (c >> 12));
    } else {
      appendEscapedByte(escaped, 0xF0 | (c >> 18));
      appendEscapedByte(escaped, 0x80 | ((c >> 12) & 0x3F));
    }
    appendEscapedByte(escaped, 0x80 | ((c >> 6) & 0x3F));
  }
  appendEscapedByte(escaped, 0x80 | (c & 0x3F));
}

}  // namespace

CFStringRef CFURLCreateStringByAddingPercentEscapes(CFAllocatorRef, CFStringRef original,
                                                    CFStringRef charactersToLeaveUnescaped,
                                                    CFStringRef legalURLCharactersToBeEscaped,
                                                    CFStringEncoding encoding) {
  if (original == nil || encoding != kCFStringEncodingUTF8) return nil;
  const std::u16string units = unitsOf(original);
  const std::u16string left = unitsOf(charactersToLeaveUnescaped ?: @"");
  const std::u16string escapedToo = unitsOf(legalURLCharactersToBeEscaped ?: @"");
  const auto holds = [](const std::u16string &set, char16_t unit) {
    return set.find(unit) != std::u16string::npos;
  };
  NSMutableString *const result = [[NSMutableString alloc] initWithCapacity:units.size()];
  for (size_t i = 0; i < units.size();) {
    const auto [character, length] = characterAt(units, i);
    const char16_t unit = units[i];
    const bool stays = holds(left, unit) || (isLegal(unit) && !holds(escapedToo, unit));
    if (stays) {
      [result appendString:[original substringWithRange:NSMakeRange(i, length)]];
    } else {
      std::string escaped;
      appendEscaped(escaped, character);
      [result appendString:[NSString stringWithUTF8String:escaped.c_str()]];
    }
    i += length;
  }
  return result;
}
