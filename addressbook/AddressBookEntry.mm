#import "addressbook/AddressBookEntry.h"

#import "text/UTF16.h"

// Works on UTF-16 units and without the platform's character sets, because it runs for every
// contact of the book and only needs to find three ASCII characters.

namespace {

/// Separates last name and first name.
constexpr std::u16string_view kLastFirstSeparator = u", ";

/// What would end a token while the recipient is typed.
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
  // nil is written as the platform writes it in a format.
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
