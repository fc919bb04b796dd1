#import "text/UTF16.h"

#include <gtest/gtest.h>

#include "tests/support/Strings.h"

TEST(SplitString, AreThoseThatThePlatformAnswers) {
  for (NSString *whole in @[ @"", @",", @"a", @"a,b", @",a,,b,", @"漢,😀,é", @",,," ]) {
    EXPECT_TRUE([utf16::splitString(whole, ',') isEqual:[whole componentsSeparatedByString:@","]])
        << text(whole);
  }
}

TEST(SplitString, OfNothingAreNothing) {
  EXPECT_EQ(utf16::splitString(nil, ','), nil);
}

TEST(SplitString, AreSeparatedWhateverFollowsTheSeparator) {
  NSArray *const expected = @[ @"a", @"\u0301b" ];
  EXPECT_TRUE([utf16::splitString(@"a,\u0301b", ',') isEqual:expected]);
}

TEST(SplitString, HalfAPairLosesItselfAndNotTheRest) {
  NSString *const whole = withHalfPair(@"a,b");
  EXPECT_EQ(text([utf16::splitString(whole, ',') componentsJoinedByString:@"|"]), "a|b\uFFFD");
}

TEST(SplitString, ThatBeginWithAByteOrderMarkKeepIt) {
  NSArray *const parts = utf16::splitString(@"a,\uFEFFb,\uFFFEc", ',');
  EXPECT_EQ(text([parts componentsJoinedByString:@"|"]), "a|\uFEFFb|\uFFFEc");
}
