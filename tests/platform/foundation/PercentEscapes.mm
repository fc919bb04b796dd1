#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include "tests/support/Strings.h"

namespace {

std::string escaped(NSString *original, NSString *also = @"!*'();:@&=+$,/?%#[] ",
                    NSString *left = nil) {
  NSString *const result = (NSString *)CFURLCreateStringByAddingPercentEscapes(
      nullptr, (CFStringRef)original, (CFStringRef)left, (CFStringRef)also, kCFStringEncodingUTF8);
  return text([result autorelease]);
}

}  // namespace

TEST(PercentEscapes, LettersDigitsAndUnreservedMarksStay) {
  EXPECT_EQ(escaped(@"azAZ09-._~"), "azAZ09-._~");
}

TEST(PercentEscapes, EveryListedCharacterIsEscaped) {
  EXPECT_EQ(escaped(@"!*'();:@&=+$,/?%#[] "),
            "%21%2A%27%28%29%3B%3A%40%26%3D%2B%24%2C%2F%3F%25%23%5B%5D%20");
}

TEST(PercentEscapes, WhatIsNeverLegalIsEscapedWithoutBeingListed) {
  EXPECT_EQ(escaped(@"a b\n\"<>\\^`{|}%", @""), "a%20b%0A%22%3C%3E%5C%5E%60%7B%7C%7D%25");
}

TEST(PercentEscapes, LegalCharactersStayWhenTheyAreNotListed) {
  EXPECT_EQ(escaped(@"http://a/b?c=d&e", @""), "http://a/b?c=d&e");
}

TEST(PercentEscapes, AnExceptionStaysUnescaped) {
  EXPECT_EQ(escaped(@"a b%", @"", @" "), "a b%25");
}

TEST(PercentEscapes, EveryPlaneIsWrittenInUtf8) {
  EXPECT_EQ(escaped(@"é"), "%C3%A9");
  EXPECT_EQ(escaped(@"漢"), "%E6%BC%A2");
  EXPECT_EQ(escaped(@"😀"), "%F0%9F%98%80");
}

TEST(PercentEscapes, ASurrogateWithoutItsPairBecomesTheReplacementCharacter) {
  // Only a mutable string can contain an unpaired surrogate here.
  NSMutableString *const broken = [NSMutableString string];
  for (const unichar unit : {u'a', u'\xD83D', u'b', u'\xDE00'}) [broken appendFormat:@"%C", unit];
  ASSERT_EQ([broken length], 4u);
  EXPECT_EQ(escaped(broken), "a%EF%BF%BDb%EF%BF%BD");
}

TEST(PercentEscapes, ANulIsEscapedLikeAnyOtherControl) {
  const unichar units[] = {'a', 0, 'b'};
  EXPECT_EQ(escaped([NSString stringWithCharacters:units length:3]), "a%00b");
}

TEST(PercentEscapes, NothingAndOtherEncodingsGiveNothing) {
  EXPECT_EQ(escaped(nil), "(nil)");
  EXPECT_EQ(CFURLCreateStringByAddingPercentEscapes(nullptr, (CFStringRef) @"a", nullptr, nullptr,
                                                    0x0600),
            nullptr);
}
