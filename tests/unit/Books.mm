#include "tests/unit/Books.h"

#include <algorithm>
#include <iterator>

#import "text/UTF16.h"

namespace {

// In rows of a kind.
// clang-format off
NSString *const kPieces[] = {
    @"a", @"A", @"n", @"N", @"e", @"k", @"K", @"s", @"S", @"i", @"I", @"x", @"Z", @"an", @"Ann",
    @"na", @"ss", @"SS", @"fi", @"0", @"7", @" ", @".", @"@", @"-", @"_", @"+", @"'", @"\"", @"*",
    @"?", @"\\", @"%", @"%@", @"$", @"[c]", @"(", @"#", @"\n", @"\r\n", @"\t", @"\x7F", @"~", @"{",
    @"\u00E9", @"\u00C9", @"e\u0301", @"E\u0301", @"\u0301", @"a\u0308\u0301", @"\u00FC", @"\u00DC",
    @"\u00DF", @"\u1E9E", @"\u00B5", @"\u039C", @"\u03BC", @"\u00FF", @"\u0178", @"\u0130",
    @"\u0131", @"\u017F", @"\u212A", @"\u00E5", @"\u212B", @"\u03C3", @"\u03C2", @"\u03A3",
    @"\u01C4", @"\u01C5", @"\u01C6", @"\uFB01", @"\uFF21", @"\uFF41", @"\uFF1C", @"\u0416",
    @"\u0436", @"\u10A0", @"\u2D00", @"\u0643", @"\u0631", @"\u05D0", @"\u202E", @"\u200D",
    @"\u4E2D", @"\u5C71", @"\u304B", @"\u30AB", @"\u304C", @"\u304B\u3099", @"\uAC00", @"\u1100",
    @"\uFEFF", @"\uFFFD", @"\uFFFF", @"\U0001F600", @"\U0001F468\u200D\U0001F469",
    @"\U00010400", @"\U00010428"};
// clang-format on

NSString *withOtherCase(NSString *string, unsigned way) {
  switch (way) {
    case 0:
      return [string uppercaseString];
    case 1:
      return [string lowercaseString];
    default:
      return [string capitalizedString];
  }
}

}  // namespace

NSArray *filteredByPredicates(NSArray *book, NSString *substring) {
  NSPredicate *const begins = [NSPredicate predicateWithFormat:@"SELF BEGINSWITH[c] %@", substring];
  NSPredicate *const contains =
      [NSPredicate predicateWithFormat:@"SELF contains[c] %@ AND NOT(SELF BEGINSWITH[c] %@)",
                                       substring, substring];
  return [[book filteredArrayUsingPredicate:begins]
      arrayByAddingObjectsFromArray:[book filteredArrayUsingPredicate:contains]];
}

NSString *RandomBooks::text(unsigned maximumPieces) {
  NSMutableString *const text = [NSMutableString string];
  const unsigned pieces = below(maximumPieces + 1);
  // Many texts are of one script, as names are.
  const unsigned limit = below(2) == 0 ? 24 : std::size(kPieces);
  for (unsigned i = 0; i < pieces; ++i) [text appendString:kPieces[below(limit)]];
  // In the platform's usual storage, not as a mutable string.
  return [NSString stringWithString:text];
}

NSString *RandomBooks::entry() {
  switch (below(50)) {
    case 0:
      return text(2);
    case 1:
      return [NSString stringWithUTF8String:[text(8) UTF8String] ?: ""];
    case 2:
      return text(120);
    default:
      return [NSString stringWithFormat:@"%@<%@%u@example.org>", text(6), text(4), below(1000)];
  }
}

NSArray *RandomBooks::book(unsigned entries) {
  NSMutableArray *const book = [NSMutableArray arrayWithCapacity:entries];
  while ([book count] < entries) {
    const bool isRepeated = [book count] > 0 && below(20) == 0;
    [book addObject:isRepeated ? [book objectAtIndex:below([book count])] : entry()];
  }
  return book;
}

NSString *RandomBooks::typedFor(NSArray *book) {
  NSString *const from = [book objectAtIndex:below([book count])];
  const unsigned begin = below(2) == 0 ? 0 : below([from length] + 1);
  const unsigned rest = static_cast<unsigned>([from length]) - begin;
  const unsigned length = below(8) == 0 ? rest : std::min(rest, below(8));
  NSString *const part = [from substringWithRange:NSMakeRange(begin, length)];
  // The platform creates no other strings with half a surrogate pair.
  return changed(part) ?: part;
}

NSString *RandomBooks::changed(NSString *part) {
  const unsigned length = static_cast<unsigned>([part length]);
  switch (below(6)) {
    case 0:
      return part;
    case 1:
    case 2:
      return withOtherCase(part, below(3));
    case 3:
      return [part stringByAppendingString:text(1)];
    case 4: {
      if (length == 0) return part;
      std::u16string units = utf16::unitsOf(part);
      units.replace(below(length), 1, utf16::unitsOf(text(1)));
      return [NSString stringWithCharacters:reinterpret_cast<const unichar *>(units.data())
                                     length:units.size()];
    }
    default:
      return text(below(20) == 0 ? 100 : 5);
  }
}
