#import "text/TextConversion.h"

#include <gtest/gtest.h>

#include "tests/support/Strings.h"

TEST(WindowTitle, AnOrdinaryNameIsTheTitle) {
  for (NSString *name in @[ @"a.txt", @"漢字 😀", @"مجلد", @"%@%n", @"a\"b" ]) {
    EXPECT_EQ(text(windowTitle(name)), text(name));
  }
}

TEST(WindowTitle, LineBreaksAndControlsBecomeBlanks) {
  EXPECT_EQ(text(windowTitle(@"a\nb")), "a b");
  EXPECT_EQ(text(windowTitle(@"a\u2028b\u2029c\td")), "a b c d");
  EXPECT_EQ(text(windowTitle(@"\nlast\n")), " last ");
}

TEST(WindowTitle, BlanksAtTheEndsOfANameStay) {
  EXPECT_EQ(text(windowTitle(@"  a b ")), "  a b ");
  EXPECT_EQ(text(windowTitle(@"\u00A0a\u3000")), "\u00A0a\u3000");
}

TEST(WindowTitle, NothingLeftIsNil) {
  EXPECT_EQ(windowTitle(nil), nil);
  EXPECT_EQ(windowTitle(@""), nil);
  EXPECT_EQ(windowTitle(@" \n\t "), nil);
}

TEST(WindowTitle, ALongNameIsCutBetweenWholeCharacters) {
  NSString *const long255 = [@"" stringByPaddingToLength:255 withString:@"x" startingAtIndex:0];
  EXPECT_EQ(text(windowTitle(long255)), text(long255));
  NSString *const emojis = [@"" stringByPaddingToLength:600 withString:@"😀" startingAtIndex:0];
  NSString *const title = windowTitle(emojis);
  EXPECT_EQ([title length], 255u);
  EXPECT_TRUE([title hasSuffix:@"\u2026"]);
  EXPECT_EQ([title length] % 2, 1u) << "whole pairs and the ellipsis";
}

TEST(WindowTitle, HalfAPairLosesItselfAndNotTheRest) {
  EXPECT_EQ(text(windowTitle(withHalfPair(@"a.txt"))), "a.txt\uFFFD");
  NSMutableString *const name = [NSMutableString stringWithString:@"\U0001F600"];
  [name appendString:[@"" stringByPaddingToLength:300 withString:@"x" startingAtIndex:0]];
  [name deleteCharactersInRange:NSMakeRange(0, 1)];
  EXPECT_EQ([windowTitle(name) length], 255u);
}
