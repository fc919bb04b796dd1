#import "windows/Recipients.h"

#include <gtest/gtest.h>

#include "tests/support/Strings.h"

namespace {

NSString *repeated(NSString *piece, NSUInteger length) {
  return [@"" stringByPaddingToLength:length withString:piece startingAtIndex:0];
}

}  // namespace

TEST(Recipients, AnAddressMatchesAsAWhole) {
  EXPECT_TRUE(isValidAddress(@"first.last+tag@mail.example.com"));
  EXPECT_TRUE(isValidAddress(@"a_b%c@example.io"));
  EXPECT_FALSE(isValidAddress(@"x a@b.com"));
  EXPECT_FALSE(isValidAddress(@"a@b.com x"));
  EXPECT_FALSE(isValidAddress(@"Anna<a@b.com>"));
}

TEST(Recipients, ALineEndBehindAnAddressMakesItInvalid) {
  NSString *const ends[] = {@"\n", @"\r", @"\r\n", @"\u0085", @"\u2028", @"\u2029", @"\v"};
  for (NSString *const end : ends) {
    EXPECT_FALSE(isValidAddress([@"a@b.com" stringByAppendingString:end]));
    EXPECT_FALSE(isValidAddress([end stringByAppendingString:@"a@b.com"]));
  }
}

TEST(Recipients, OnlyTheListedCharactersAreAllowed) {
  EXPECT_FALSE(isValidAddress(@"\u00E9@b.com"));
  EXPECT_FALSE(isValidAddress(@"a@b\u00FC.com"));
  EXPECT_FALSE(isValidAddress(@"\uFF41@b.com"));
  EXPECT_FALSE(isValidAddress(@"a@b.co\u212A"));
  EXPECT_FALSE(isValidAddress([NSString stringWithFormat:@"a@b.com%C", (unichar)0]));
}

TEST(Recipients, EachCharacterOfThePatternIsAllowedInItsPart) {
  EXPECT_TRUE(isValidAddress(@"AZaz09._%+-@b.com"));
  EXPECT_TRUE(isValidAddress(@"a@AZaz09-b.c-d.com"));
  EXPECT_FALSE(isValidAddress(@"a@b_c.com"));
  EXPECT_FALSE(isValidAddress(@"a@b.c0m"));
}

TEST(Recipients, ATopLevelDomainHasTwoToFourLetters) {
  EXPECT_FALSE(isValidAddress(@"a@b.c"));
  EXPECT_TRUE(isValidAddress(@"a@b.co"));
  EXPECT_TRUE(isValidAddress(@"a@b.info"));
  EXPECT_FALSE(isValidAddress(@"a@b.infos"));
}

TEST(Recipients, AVeryLongAddressIsJudgedToo) {
  EXPECT_TRUE(isValidAddress([repeated(@"a", 100000) stringByAppendingString:@"@b.com"]));
  EXPECT_TRUE(isValidAddress(
      [[@"a@" stringByAppendingString:repeated(@"b.", 100000)] stringByAppendingString:@"com"]));
  EXPECT_FALSE(isValidAddress(repeated(@"a", 100000)));
  EXPECT_FALSE(isValidAddress([@"a@" stringByAppendingString:repeated(@"b.", 100000)]));
  EXPECT_FALSE(isValidAddress([@"a@" stringByAppendingString:repeated(@".", 100000)]));
  EXPECT_FALSE(isValidAddress(repeated(@"@", 100000)));
}

TEST(Recipients, TheFirstInvalidOneIsNamedAsItWasEntered) {
  EXPECT_EQ(text(firstInvalidRecipient(@"a@b.com, c@d.com,nobody")), " c@d.com");
  EXPECT_EQ(text(firstInvalidRecipient(@"a@b.com,")), "");
  EXPECT_EQ(text(firstInvalidRecipient(@"")), "");
  EXPECT_EQ(text(firstInvalidRecipient(nil)), "");
  EXPECT_EQ(firstInvalidRecipient(@"a@b.com,c@d.com"), nil);
}

TEST(Recipients, ACommaSeparatesWhateverFollowsIt) {
  EXPECT_EQ(text(firstInvalidRecipient(@"a@b.com,\u0301c@d.com")), "\u0301c@d.com");
}
