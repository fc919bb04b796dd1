#import "addressbook/AddressBookEntry.h"

#include <gtest/gtest.h>

#include "tests/support/Strings.h"

namespace {

std::string entry(NSString *name, NSString *address = @"a@b",
                  NSString *format = @"%1$@ %2$@<%3$@>") {
  return text(addressBookEntry(name, address, EntryFormat(format)));
}

}  // namespace

TEST(AddressBookEntry, ANameWithOneCommaAndBlankGetsTheLocalizedForm) {
  EXPECT_EQ(entry(@"Doe, John"), "John Doe<a@b>");
}

TEST(AddressBookEntry, TheLocalizedFormatDecidesTheOrder) {
  EXPECT_EQ(entry(@"Doe, John", @"a@b", @"%2$@ %1$@ <%3$@>"), "Doe John <a@b>");
}

TEST(AddressBookEntry, ANameWithABlankIsJoinedIntoOneWord) {
  EXPECT_EQ(entry(@"John Doe"), "JohnDoe<a@b>");
}

TEST(AddressBookEntry, ANameWithTwoCommasAndBlanksKeepsItsFirstPartOnly) {
  EXPECT_EQ(entry(@"Doe, John, Dr."), "Doe<a@b>");
}

TEST(AddressBookEntry, BlanksCommasAndSemicolonsAreRemovedFromEachPart) {
  EXPECT_EQ(entry(@"van der; Berg, Anna,Maria"), "AnnaMaria vanderBerg<a@b>");
  EXPECT_EQ(entry(@"a,b;c d"), "abcd<a@b>");
}

TEST(AddressBookEntry, ACommaWithoutABlankSeparatesNothing) {
  EXPECT_EQ(entry(@"Doe,John"), "DoeJohn<a@b>");
}

TEST(AddressBookEntry, EmptyPartsStayEmpty) {
  EXPECT_EQ(entry(@""), "<a@b>");
  EXPECT_EQ(entry(@", "), " <a@b>");
  EXPECT_EQ(entry(@"Doe, "), " Doe<a@b>");
}

TEST(AddressBookEntry, TheAddressIsUsedAsItIs) {
  EXPECT_EQ(entry(@"X", @"a b,c;d@e"), "X<a b,c;d@e>");
}

TEST(AddressBookEntry, AMissingNameOrAddressIsWrittenAsThePlatformWritesNil) {
  NSString *const nothing = nil;
  EXPECT_EQ(entry(nil), text([NSString stringWithFormat:@"%@<a@b>", nothing]));
  EXPECT_EQ(entry(@"X", nil), text([NSString stringWithFormat:@"X<%@>", nothing]));
  EXPECT_EQ(entry(nil, nil), text([NSString stringWithFormat:@"%@<%@>", nothing, nothing]));
}

TEST(AddressBookEntry, NamesInAnyScriptKeepTheirCharacters) {
  EXPECT_EQ(entry(@"山田, 太郎"), "太郎 山田<a@b>");
  EXPECT_EQ(entry(@"😀 é"), "😀é<a@b>");
  EXPECT_EQ(entry(@"كريم, علي"), "علي كريم<a@b>");
}

TEST(AddressBookEntry, AFormatDirectiveInANameIsNoFormat) {
  EXPECT_EQ(entry(@"%@%n%s"), "%@%n%s<a@b>");
  EXPECT_EQ(entry(@"%@, %d"), "%d %@<a@b>");
}
