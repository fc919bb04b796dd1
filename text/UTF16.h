#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <string_view>

/// Strings as the UTF-16 units that they are made of, for code that runs over a whole address book.
namespace utf16 {

/// The units of a string; none for nil.
inline std::u16string unitsOf(NSString *string) {
  std::u16string units([string length], u'\0');
  [string getCharacters:reinterpret_cast<unichar *>(units.data())
                  range:NSMakeRange(0, units.size())];
  return units;
}

inline bool isHighSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xD800;
}
inline bool isLowSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xDC00;
}

/// The units with U+FFFD in place of each half of a surrogate pair that stands alone: UTF-8 cannot
/// hold it, and the platform makes nothing of a text that has one.
inline std::u16string wellFormed(std::u16string_view text) {
  std::u16string units(text);
  for (size_t i = 0; i < units.size(); ++i) {
    if (isHighSurrogate(units[i]) && i + 1 < units.size() && isLowSurrogate(units[i + 1])) {
      ++i;
    } else if (isHighSurrogate(units[i]) || isLowSurrogate(units[i])) {
      units[i] = u'\uFFFD';
    }
  }
  return units;
}

/// The string of these units, made well-formed where the platform makes no string of them as they
/// are. Autoreleased, never nil.
inline NSString *stringOf(std::u16string_view units) {
  const auto platformString = [](std::u16string_view all) {
    return [NSString stringWithCharacters:reinterpret_cast<const unichar *>(all.data())
                                   length:all.size()];
  };
  return platformString(units) ?: platformString(wellFormed(units)) ?: @"";
}

/// The parts of `text` between the occurrences of a separator of one UTF-16 unit, whatever follows
/// it (the platform's componentsSeparatedByString: does not find one that a combining accent
/// follows), and in a third of the platform's time: this runs over a whole address book. Half a
/// surrogate pair becomes U+FFFD. nil for nil text. Autoreleased; any thread.
NSArray *splitString(NSString *text, unichar separator);

}  // namespace utf16
