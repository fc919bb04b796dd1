#import "app/AddressBookEntry.h"

#include <algorithm>
#include <string>

namespace {

/// What marks a name as last name, first name.
NSString *const kLastFirstSeparator = @", ";

/// What would end a recipient while it is typed.
NSString *const kRemovedCharacters = @",; ";

/// The part without the removed characters. Written over UTF-16 units, without the platform's
/// character sets: this runs for every contact of the book.
NSString *cleaned(NSString *part) {
  const NSUInteger length = [part length];
  std::u16string units(length, u'\0');
  [part getCharacters:reinterpret_cast<unichar *>(units.data()) range:NSMakeRange(0, length)];
  static const std::u16string removed = [] {
    std::u16string characters([kRemovedCharacters length], u'\0');
    [kRemovedCharacters getCharacters:reinterpret_cast<unichar *>(characters.data())
                                range:NSMakeRange(0, characters.size())];
    return characters;
  }();
  std::erase_if(units, [](char16_t unit) { return removed.find(unit) != std::u16string::npos; });
  if (units.size() == length) return part;
  return [NSString stringWithCharacters:reinterpret_cast<const unichar *>(units.data())
                                 length:units.size()];
}

}  // namespace

NSString *addressBookEntry(NSString *personName, NSString *address,
                           NSString *lastCommaFirstFormat) {
  if (personName == nil) return [NSString stringWithFormat:@"%@<%@>", personName, address];
  NSArray *const parts = [personName componentsSeparatedByString:kLastFirstSeparator];
  NSString *const first = cleaned([parts objectAtIndex:0]);
  if ([parts count] == 2) {
    return [NSString
        stringWithFormat:lastCommaFirstFormat, cleaned([parts objectAtIndex:1]), first, address];
  }
  return [NSString stringWithFormat:@"%@<%@>", first, address];
}
