#import "text/TextConversion.h"

#include <gtest/gtest.h>

#include "tests/support/Strings.h"

namespace {

NSString *repeated(NSString *part, NSUInteger length) {
  return [@"" stringByPaddingToLength:length withString:part startingAtIndex:0];
}

}  // namespace

TEST(MailText, AShortTextIsKeptWhole) {
  EXPECT_EQ(text(firstUnits(@"abc", 80)), "abc");
  EXPECT_EQ(text(firstUnits(repeated(@"x", 80), 80)), text(repeated(@"x", 80)));
  EXPECT_EQ(firstUnits(nil, 80), nil);
}

TEST(MailText, ALongTextIsCutToItsFirstUnits) {
  EXPECT_EQ(text(firstUnits(repeated(@"0123456789", 100), 80)), text(repeated(@"0123456789", 80)));
  EXPECT_EQ([firstUnits(repeated(@"x", 801), 800) length], 800u);
}

TEST(MailText, ACutNeverTearsAPairApart) {
  NSString *const odd = [@"x" stringByAppendingString:repeated(@"😀", 100)];
  EXPECT_EQ([firstUnits(odd, 80) length], 79u);
  NSString *const even = repeated(@"😀", 100);
  EXPECT_EQ([firstUnits(even, 80) length], 80u);
  EXPECT_EQ(text(percentEscaped(firstUnits(odd, 4))), "x%F0%9F%98%80");
}

TEST(MailText, AllButLettersDigitsAndFourMarksIsEscaped) {
  EXPECT_EQ(text(percentEscaped(@"Q&A 50%")), "Q%26A%2050%25");
  EXPECT_EQ(text(percentEscaped(@"az-AZ.09_~")), "az-AZ.09_~");
  EXPECT_EQ(text(percentEscaped(@"!*'();:@&=+$,/?%#[] ")),
            "%21%2A%27%28%29%3B%3A%40%26%3D%2B%24%2C%2F%3F%25%23%5B%5D%20");
  EXPECT_EQ(text(percentEscaped(@"a\nb")), "a%0Ab");
  EXPECT_EQ(text(percentEscaped(@"\"<>\\^`{|}")), "%22%3C%3E%5C%5E%60%7B%7C%7D");
}

TEST(MailText, EveryPlaneIsEscapedAsUtf8) {
  EXPECT_EQ(text(percentEscaped(@"é漢😀")), "%C3%A9%E6%BC%A2%F0%9F%98%80");
}

TEST(MailText, HalfAPairLosesItselfAndNotTheRest) {
  EXPECT_EQ(text(percentEscaped(withHalfPair(@"a b"))), "a%20b%EF%BF%BD");
}

TEST(MailText, NilStaysNilAndEmptyStaysEmpty) {
  EXPECT_EQ(percentEscaped(nil), nil);
  EXPECT_EQ(text(percentEscaped(@"")), "");
}
