#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <random>

#include "tests/support/Strings.h"

namespace {

/// The result of the platform's own method for an English locale.
NSComparisonResult platformsAnswer(NSString *left, NSString *right) {
  static NSLocale *const english = [[NSLocale alloc] initWithLocaleIdentifier:@"en_US"];
  return [left compare:right
               options:NSCaseInsensitiveSearch
                 range:NSMakeRange(0, [left length])
                locale:english];
}

NSString *randomString(std::mt19937 &random) {
  static const unichar characters[] = {'a', 'A',    'b',    'B',    'z',    ' ',    '<',
                                       '@', 0xE9,   0xC9,   0x130,  0x131,  0xDF,   0x301,
                                       '1', 0x5C71, 0x0643, 0xD83D, 0xDE00, 0x1E9E, '-'};
  NSMutableString *const string = [NSMutableString string];
  const auto length = random() % 8;
  for (unsigned i = 0; i < length; ++i) {
    [string appendFormat:@"%C", characters[random() % std::size(characters)]];
  }
  return string;
}

}  // namespace

TEST(LocalizedCompare, AnswersAsThePlatformDoesWhereThatTellsStringsApart) {
  std::mt19937 random(20110601);
  for (int i = 0; i < 20000; ++i) {
    @autoreleasepool {
      NSString *const left = randomString(random);
      NSString *const right = randomString(random);
      const NSComparisonResult expected = platformsAnswer(left, right);
      // Strings that differ in accents only are equal for the platform and ordered here.
      if (expected == NSOrderedSame) continue;
      ASSERT_EQ([left localizedCaseInsensitiveCompare:right], expected)
          << text(left) << " | " << text(right);
    }
  }
}

TEST(LocalizedCompare, AccentsDecideBetweenWordsThatAreOtherwiseTheSame) {
  EXPECT_EQ([@"resume" localizedCaseInsensitiveCompare:@"RÉSUMÉ"], NSOrderedAscending);
  EXPECT_EQ([@"résumé" localizedCaseInsensitiveCompare:@"RÉSUMÉ"], NSOrderedSame);
  EXPECT_EQ([@"résumé" localizedCaseInsensitiveCompare:@"resumf"], NSOrderedAscending);
}

TEST(LocalizedCompare, LetterCaseDoesNotCountInThePlainLocaleEither) {
  EXPECT_EQ(text([[NSLocale currentLocale] localeIdentifier]), "en_US_POSIX");
  EXPECT_EQ([@"anna" localizedCaseInsensitiveCompare:@"Bob"], NSOrderedAscending);
  EXPECT_EQ([@"ANNA" localizedCaseInsensitiveCompare:@"anna"], NSOrderedSame);
}

TEST(LocalizedCompare, LongStringsCompareLikeShortOnes) {
  NSString *const left = [@"a" stringByPaddingToLength:5000 withString:@"é" startingAtIndex:0];
  NSString *const right = [left stringByAppendingString:@"x"];
  EXPECT_EQ([left localizedCaseInsensitiveCompare:right], NSOrderedAscending);
  EXPECT_EQ([right localizedCaseInsensitiveCompare:left], NSOrderedDescending);
  EXPECT_EQ([left localizedCaseInsensitiveCompare:left], NSOrderedSame);
}
