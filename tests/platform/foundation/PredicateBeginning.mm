#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <string>

namespace {

BOOL answer(NSString *format, NSString *string, NSString *beginning) {
  return [[NSPredicate predicateWithFormat:format, beginning] evaluateWithObject:string];
}

BOOL begins(NSString *string, NSString *beginning) {
  return answer(@"SELF BEGINSWITH[c] %@", string, beginning);
}

/// The text followed by a character that cannot be stored in one byte.
NSString *stored(NSString *text) {
  return [text stringByAppendingString:@"\u4E2D"];
}

}  // namespace

TEST(PredicateBeginning, AStringThatIsTooShortDoesNotBeginWithIt) {
  EXPECT_FALSE(begins(@"an", @"anna"));
  EXPECT_FALSE(begins(@"", @"a"));
  EXPECT_FALSE(answer(@"SELF BEGINSWITH %@", @"an", @"anna"));
  EXPECT_FALSE(answer(@"SELF BEGINSWITH[cd] %@", @"an", @"anna"));
}

TEST(PredicateBeginning, LetterCaseCountsUnlessItIsSaidNotTo) {
  EXPECT_TRUE(begins(@"Anna", @"aNN"));
  EXPECT_FALSE(answer(@"SELF BEGINSWITH %@", @"Anna", @"aNN"));
  EXPECT_TRUE(answer(@"SELF BEGINSWITH %@", @"Anna", @"Ann"));
}

TEST(PredicateBeginning, OnlyTheBeginningCounts) {
  EXPECT_FALSE(begins(@"Joanna", @"anna"));
  EXPECT_TRUE(begins(@"anna", @"anna"));
}

TEST(PredicateBeginning, EveryStringBeginsWithTheEmptyOne) {
  EXPECT_TRUE(begins(@"Anna", @""));
  EXPECT_TRUE(begins(@"", @""));
}

TEST(PredicateBeginning, HowTheStringsAreStoredDoesNotCount) {
  NSString *const beginnings[] = {@"É", @"é"};
  for (NSString *const beginning : beginnings) {
    EXPECT_TRUE(begins(@"Émile", beginning));
    EXPECT_TRUE(begins(stored(@"Émile"), beginning));
    EXPECT_TRUE(begins(stored(@"É"), stored(beginning)));
  }
}

TEST(PredicateBeginning, OtherComparisonsAreThePlatforms) {
  EXPECT_TRUE(answer(@"SELF ENDSWITH[c] %@", @"Anna", @"NA"));
  EXPECT_TRUE(answer(@"SELF contains[c] %@", @"Joanna", @"ANN"));
  EXPECT_TRUE(answer(@"SELF == %@", @"Anna", @"Anna"));
  EXPECT_FALSE(answer(@"SELF == %@", @"Anna", @"anna"));
  NSArray *const names = [NSArray arrayWithObjects:@"Bob", @"Anna", nil];
  NSPredicate *const any = [NSPredicate predicateWithFormat:@"ANY SELF BEGINSWITH %@", @"An"];
  EXPECT_TRUE([any evaluateWithObject:names]);
}

TEST(PredicateBeginning, WhatIsNoStringBeginsWithNothing) {
  NSPredicate *const predicate = [NSPredicate predicateWithFormat:@"name BEGINSWITH[c] %@", @"a"];
  EXPECT_FALSE([predicate evaluateWithObject:[NSDictionary dictionary]]);
  EXPECT_FALSE([predicate evaluateWithObject:[NSDictionary dictionaryWithObject:[NSNull null]
                                                                         forKey:@"name"]]);
}
