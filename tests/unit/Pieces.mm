#import "text/Pieces.h"

#include <gtest/gtest.h>

#include "tests/support/Strings.h"

TEST(Pieces, AreThoseThatThePlatformAnswers) {
  for (NSString *whole in @[ @"", @",", @"a", @"a,b", @",a,,b,", @"漢,😀,é", @",,," ]) {
    EXPECT_TRUE([agent::piecesOf(whole, ',') isEqual:[whole componentsSeparatedByString:@","]])
        << text(whole);
  }
}

TEST(Pieces, OfNothingAreNothing) {
  EXPECT_EQ(agent::piecesOf(nil, ','), nil);
}

TEST(Pieces, AreSeparatedWhateverFollowsTheSeparator) {
  NSArray *const expected = @[ @"a", @"\u0301b" ];
  EXPECT_TRUE([agent::piecesOf(@"a,\u0301b", ',') isEqual:expected]);
}

TEST(Pieces, HalfAPairLosesItselfAndNotTheRest) {
  NSString *const whole = withHalfPair(@"a,b");
  EXPECT_EQ(text([agent::piecesOf(whole, ',') componentsJoinedByString:@"|"]), "a|b\uFFFD");
}
