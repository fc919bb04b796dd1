#import "addressbook/AddressBookCompletion.h"

#include <gtest/gtest.h>

#import "addressbook/IndexedBook.h"
#import "addressbook/PlatformCaseFolding.h"
#include "tests/support/Strings.h"
#include "tests/support/Thorough.h"
#include "tests/unit/Books.h"

namespace {

NSArray *people() {
  return [NSArray arrayWithObjects:@"Anna<anna@example.org>", @"Dan<dan@example.org>",
                                   @"Brian<brian@example.org>", @"ANDY<andy@example.org>", nil];
}

/// How many are completed in a random book. The sanitizers look for other faults than wrong
/// results, and take fifteen times as long for one.
const unsigned kSubstrings = SANITIZER_SLOWDOWN > 1 ? 50U : isThorough() ? 1000U : 300U;

struct Completion : testing::Test {
  AddressBookCompletion *completion = [[[AddressBookCompletion alloc] init] autorelease];

  NSArray *completionsIn(NSArray *book, NSString *substring) const {
    return [completion completionsIn:book forSubstring:substring];
  }

  static std::string joined(NSArray *list) { return text([list componentsJoinedByString:@" "]); }
};

NSMutableArray *someBook() {
  return [NSMutableArray arrayWithObjects:@"Anna<a@x>", @"Bob<b@x>", nil];
}

/// The same objects, not only equal ones, in the same order.
testing::AssertionResult isSame(NSArray *answer, NSArray *expected, NSString *substring) {
  if ([answer count] != [expected count]) {
    return testing::AssertionFailure() << [answer count] << " instead of " << [expected count]
                                       << " for '" << text(substring) << "'";
  }
  for (NSUInteger i = 0; i < [expected count]; ++i) {
    if ([answer objectAtIndex:i] != [expected objectAtIndex:i]) {
      return testing::AssertionFailure()
             << text([answer objectAtIndex:i]) << " at " << i << " for '" << text(substring) << "'";
    }
  }
  return testing::AssertionSuccess();
}

/// Compares the completions of a random book with the predicates' results.
void compare(unsigned seed, unsigned entries, unsigned substrings, const CaseFolding &folding) {
  RandomBooks random(seed);
  NSArray *const book = random.book(entries);
  IndexedBook *const index = [[[IndexedBook alloc] initWithBook:book folding:folding] autorelease];
  unsigned hits = 0;
  for (unsigned i = 0; i < substrings; ++i) {
    @autoreleasepool {
      NSString *const substring = random.typedFor(book);
      NSArray *const expected = filteredByPredicates(book, substring);
      hits += [expected count] > 0;
      ASSERT_TRUE(isSame([index completionsForSubstring:substring], expected, substring));
    }
  }
  // Some entries are found, but not all.
  EXPECT_GT(hits, substrings / 2);
  EXPECT_LT(hits, substrings);
}

}  // namespace

struct CompletionOfABook : testing::TestWithParam<unsigned> {};

TEST_P(CompletionOfABook, IsWhatThePredicatesFind) {
  // The platform's predicates go through the whole book for each substring.
  compare(GetParam(), isThorough() ? 5000 : 1000, kSubstrings, platformCaseFolding());
}

INSTANTIATE_TEST_SUITE_P(Seeds, CompletionOfABook, testing::Range(1U, 11U));

TEST_F(Completion, IsWhatThePredicatesFindInALargeBook) {
  compare(12, 20000, kSubstrings / 10, platformCaseFolding());
}

TEST_F(Completion, IsWhatThePredicatesFindWhereMostIsLeftToThem) {
  const CaseFolding ascii;
  compare(11, 2000, kSubstrings, ascii);
}

TEST_F(Completion, FirstTheEntriesThatBeginWithItThenThoseThatContainItEachInTheBooksOrder) {
  EXPECT_EQ(joined(completionsIn(people(), @"an")),
            "Anna<anna@example.org> ANDY<andy@example.org> Dan<dan@example.org> "
            "Brian<brian@example.org>");
}

TEST_F(Completion, ASubstringThatNoEntryContainsGivesAnEmptyArray) {
  EXPECT_TRUE([completionsIn(people(), @"xyz") isEqual:@[]]);
}

TEST_F(Completion, WithoutABookOrASubstringThereIsNone) {
  EXPECT_TRUE([completionsIn(nil, @"a") isEqual:@[]]);
  EXPECT_TRUE([completionsIn(@[], @"a") isEqual:@[]]);
  EXPECT_TRUE([completionsIn(people(), nil) isEqual:@[]]);
}

TEST_F(Completion, TheEmptySubstringGivesTheWholeBook) {
  EXPECT_TRUE([completionsIn(people(), @"") isEqual:people()]);
  EXPECT_TRUE([filteredByPredicates(people(), @"") isEqual:people()]);
}

TEST_F(Completion, WhatIsLongerThanAnEntryIsNoError) {
  EXPECT_EQ(joined(completionsIn(@[ @"", @"<>", @"Anna<anna@x>" ], @"anna<anna")), "Anna<anna@x>");
}

TEST_F(Completion, QuotesWildcardsAndDirectivesStandForThemselves) {
  NSArray *const book = @[ @"a*b?<x@x>", @"O'Neil \"Bo\"<o@x>", @"50%@<p@x>", @"back\\slash<b@x>" ];
  EXPECT_EQ(joined(completionsIn(book, @"*b?")), "a*b?<x@x>");
  EXPECT_EQ(joined(completionsIn(book, @"?")), "a*b?<x@x>");
  EXPECT_EQ(joined(completionsIn(book, @"o'neil \"bo")), "O'Neil \"Bo\"<o@x>");
  EXPECT_EQ(joined(completionsIn(book, @"%@")), "50%@<p@x>");
  EXPECT_EQ(joined(completionsIn(book, @"\\S")), "back\\slash<b@x>");
}

TEST_F(Completion, AnAccentedInitialIsFoundInEitherCase) {
  NSArray *const book = @[ @"Zoë<z@x>", @"René Émile<r@x>", @"Émile<e@x>" ];
  EXPECT_EQ(joined(completionsIn(book, @"ém")), "Émile<e@x> René Émile<r@x>");
  EXPECT_EQ(joined(completionsIn(book, @"ÉM")), "Émile<e@x> René Émile<r@x>");
}

TEST_F(Completion, AnEntryAddedToTheBookIsFoundAtTheNextKey) {
  NSMutableArray *const book = someBook();
  EXPECT_EQ(joined(completionsIn(book, @"zoe")), "");
  [book addObject:@"Zoe<z@x>"];
  EXPECT_EQ(joined(completionsIn(book, @"zoe")), "Zoe<z@x>");
}

TEST_F(Completion, EveryOtherChangeOfTheBookIsSeenAtTheNextKey) {
  NSMutableArray *const book = someBook();
  EXPECT_EQ(joined(completionsIn(book, @"x>")), "Anna<a@x> Bob<b@x>");
  [book replaceObjectAtIndex:0 withObject:@"Carl<c@x>"];
  EXPECT_EQ(joined(completionsIn(book, @"x>")), "Carl<c@x> Bob<b@x>");
  [book insertObject:@"Dan<d@x>" atIndex:1];
  EXPECT_EQ(joined(completionsIn(book, @"x>")), "Carl<c@x> Dan<d@x> Bob<b@x>");
  [book removeLastObject];
  EXPECT_EQ(joined(completionsIn(book, @"x>")), "Carl<c@x> Dan<d@x>");
  [book removeAllObjects];
  EXPECT_EQ(joined(completionsIn(book, @"x>")), "");
}

TEST_F(Completion, AnIndexTakesAnAdditionUpAndNoOtherChange) {
  NSMutableArray *const book = someBook();
  IndexedBook *const index = [[[IndexedBook alloc] initWithBook:book] autorelease];
  [book addObject:@"Zoe<z@x>"];
  EXPECT_TRUE([index updateFromBook:book]);
  EXPECT_EQ([index count], 3u);
  [book replaceObjectAtIndex:1 withObject:@"Carl<c@x>"];
  EXPECT_FALSE([index updateFromBook:book]);
  [book removeAllObjects];
  EXPECT_FALSE([index updateFromBook:book]);
  EXPECT_EQ([index count], 3u);
}

TEST_F(Completion, AnotherBookIsAnsweredFromItself) {
  EXPECT_EQ(joined(completionsIn(someBook(), @"x>")), "Anna<a@x> Bob<b@x>");
  EXPECT_EQ(joined(completionsIn(@[ @"Carl<c@x>", @"Dan<d@x>" ], @"x>")), "Carl<c@x> Dan<d@x>");
}

TEST_F(Completion, AnIndexMadeAheadOfAnotherBookDoesNoHarm) {
  [[completion exchangeIndex:[[IndexedBook alloc] initWithBook:someBook()]] release];
  EXPECT_EQ(joined(completionsIn(people(), @"dan")), "Dan<dan@example.org>");
}

TEST_F(Completion, AnAnswerStaysWhatItIsWhenTheBookChanges) {
  NSMutableArray *const book = someBook();
  NSArray *const before = completionsIn(book, @"x>");
  [book addObject:@"Zoe<z@x>"];
  EXPECT_EQ([completionsIn(book, @"x>") count], 3u);
  EXPECT_EQ(joined(before), "Anna<a@x> Bob<b@x>");
  [book removeAllObjects];
  EXPECT_EQ([completionsIn(book, @"x>") count], 0u);
  EXPECT_EQ(joined(before), "Anna<a@x> Bob<b@x>");
}

TEST_F(Completion, AnAnswerKeepsItsEntriesAlive) {
  NSArray *answer = nil;
  @autoreleasepool {
    NSMutableArray *const book = [NSMutableArray array];
    [book addObject:[NSString stringWithFormat:@"A name that is long enough<%d@example.org>", 1]];
    answer = [completionsIn(book, @"name") retain];
    [[completion exchangeIndex:nil] release];
  }
  EXPECT_EQ(joined(answer), "A name that is long enough<1@example.org>");
  [answer release];
}

TEST_F(Completion, AnAnswerIsAnArrayLikeAnyOther) {
  NSArray *const answer = completionsIn(people(), @"an");
  EXPECT_EQ(text([answer lastObject]), "Brian<brian@example.org>");
  EXPECT_EQ([answer indexOfObject:@"Dan<dan@example.org>"], 2u);
  EXPECT_TRUE([[NSArray arrayWithArray:answer] isEqual:answer]);
  EXPECT_TRUE([[[answer copy] autorelease] isEqual:answer]);
  NSUInteger entries = 0;
  for (NSString *entry in answer) entries += [entry length] > 0;
  EXPECT_EQ(entries, 4u);
  NSString *raised = nil;
  @try {
    [answer objectAtIndex:4];
  } @catch (NSException *exception) {
    raised = [exception name];
  }
  EXPECT_EQ(text(raised), text(NSRangeException));
}
