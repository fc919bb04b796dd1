#include "addressbook/AddressBookEntry.h"
#include "tests/fuzz/Input.h"
#include "tests/fuzz/Target.h"
#include "text/UTF16.h"

/// input: the text of the field.
void fuzz::Brackets(std::string_view input) {
  const std::u16string units = unitsFrom(input);
  NSString *const address = addressOfEntry(stringFrom(input));

  const auto open = units.find_first_of(u"<>");
  promise((address == nil) == (open == units.npos), "an address exactly when there is a bracket");
  if (address == nil) return;
  const auto close = units.find_first_of(u"<>", open + 1);
  const std::u16string between =
      units.substr(open + 1, close == units.npos ? units.npos : close - open - 1);
  promise(utf16::unitsOf(address) == between, "the address stands between the first two brackets");
}
