#pragma once

#include <Foundation/Foundation.h>

#include <string>

/// The UTF-16 units of a part of a text.
inline std::u16string unitsOf(NSString *text, NSRange range) {
  std::u16string units(range.length, u'\0');
  [text getCharacters:reinterpret_cast<unichar *>(units.data()) range:range];
  return units;
}

/// A paragraph of a text, with its line break.
struct Paragraph {
  NSUInteger start = 0;
  std::u16string units;
};

/// The paragraph that the index lies in, from 0 to the length of the text.
inline Paragraph paragraphAt(NSString *text, NSUInteger index) {
  const NSRange range = [text paragraphRangeForRange:NSMakeRange(index, 0)];
  return {range.location, unitsOf(text, range)};
}
