#include <algorithm>

#include "addressbook/AddressBookEntry.h"
#include "tests/fuzz/Input.h"
#include "tests/fuzz/Target.h"
#include "text/UTF16.h"
#include "windows/Recipients.h"

namespace {

constexpr std::u16string_view kBrackets = u"<>";

void checkFormat(NSString *text) {
  const EntryFormat format(text);
  // Formats that are not simple go to the platform, which must not get a stranger's format.
  if (!format.isSimple()) return;
  NSString *const filled = format.fill({u"first", u"%@ last", u"a@b"});
  fuzz::promise(
      [filled isEqualToString:[NSString stringWithFormat:text, @"first", @"%@ last", @"a@b"]],
      "a format is filled in as the platform does");
}

}  // namespace

/// input: a line with the name, a line with the address, and a format.
void fuzz::Entries(std::string_view input) {
  const auto fields = fieldsOf(input, 3);
  NSString *const name = wellFormedStringFrom(fields[0]);
  NSString *const address = wellFormedStringFrom(fields[1]);
  static const EntryFormat lastCommaFirst(@"%1$@ %2$@<%3$@>");
  NSString *const entry = addressBookEntry(name, address, lastCommaFirst);

  const std::u16string units = utf16::unitsOf(entry);
  const std::u16string end = u"<" + utf16::unitsOf(address) + u">";
  promise(units.ends_with(end), "an entry ends with its address in brackets");
  const std::u16string shown = units.substr(0, units.size() - end.size());
  promise(shown.find_first_of(u",;") == shown.npos, "nothing in the name ends a recipient");
  promise(std::count(shown.begin(), shown.end(), u' ') <= 1, "a name has two words at most");
  promise(shown.size() <= [name length] + 1, "a name does not grow");
  const std::u16string both = utf16::unitsOf(name) + utf16::unitsOf(address);
  if (both.find_first_of(kBrackets) == both.npos) {
    promise([addressOfEntry(entry) isEqualToString:address], "the address is found again");
  }
  checkFormat(wellFormedStringFrom(fields[2]));
}
