#import "addressbook/AddressBookEntry.h"

#import "text/UTF16.h"

// Written over UTF-16 units, without the platform's strings and character sets: this runs for every
// contact of the book, and its rules are about three plain characters.

namespace {

/// What marks a name as last name, first name.
constexpr std::u16string_view kLastFirstSeparator = u", ";

/// What would end a recipient while it is typed.
constexpr std::u16string_view kRemovedCharacters = u",; ";

std::u16string cleaned(std::u16string_view part) {
  std::u16string rest(part);
  std::erase_if(rest, [](char16_t unit) {
    return kRemovedCharacters.find(unit) != std::u16string_view::npos;
  });
  return rest;
}

}  // namespace

NSString *addressBookEntry(NSString *personName, NSString *address,
                           const EntryFormat &lastCommaFirstFormat) {
  // The platform knows best how it writes nil; the missing part needs no cleaning.
  NSString *const name = personName ?: [NSString stringWithFormat:@"%@", personName];
  NSString *const mail = address ?: [NSString stringWithFormat:@"%@", address];
  static const EntryFormat plainFormat(@"%@<%@>");

  const std::u16string nameUnits = utf16::unitsOf(name);
  const std::u16string mailUnits = utf16::unitsOf(mail);
  const std::u16string_view all = nameUnits;
  const size_t separator = all.find(kLastFirstSeparator);
  const std::u16string first = cleaned(all.substr(0, separator));
  if (separator != all.npos) {
    const std::u16string_view rest = all.substr(separator + kLastFirstSeparator.size());
    if (rest.find(kLastFirstSeparator) == rest.npos) {
      return lastCommaFirstFormat.fill({cleaned(rest), first, mailUnits});
    }
  }
  return plainFormat.fill({first, mailUnits, {}});
}

NSString *addressOfEntry(NSString *editingString) {
  NSCharacterSet *const brackets = [NSCharacterSet characterSetWithCharactersInString:@"<>"];
  NSArray *const pieces = [editingString componentsSeparatedByCharactersInSet:brackets];
  return [pieces count] < 2 ? nil : [pieces objectAtIndex:1];
}
