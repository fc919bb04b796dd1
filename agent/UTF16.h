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

/// The string of these units; the empty string where the platform makes none (of half a surrogate
/// pair, for example). Autoreleased.
inline NSString *stringOf(std::u16string_view units) {
  return [NSString stringWithCharacters:reinterpret_cast<const unichar *>(units.data())
                                 length:units.size()]
             ?: @"";
}

}  // namespace utf16
