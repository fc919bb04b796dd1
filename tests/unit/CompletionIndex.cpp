#include "addressbook/CompletionIndex.h"

#include <gtest/gtest.h>

#include <numeric>

namespace {

using Numbers = std::vector<std::uint32_t>;

/// All units are decided; only ASCII has letter case.
CaseFolding allUnits() {
  const CaseFolding ascii;
  std::u16string folded(0x10000, u'\0');
  std::iota(folded.begin(), folded.end(), u'\0');
  for (char16_t &unit : folded) {
    if (ascii.covers(unit)) unit = ascii(unit);
  }
  return CaseFolding(folded);
}

struct CompletionIndexTest : testing::Test {
  const CaseFolding everything = allUnits();
  const CaseFolding ascii;

  static CompletionIndex indexOf(const CaseFolding &folding,
                                 const std::vector<std::u16string> &entries) {
    CompletionIndex index(folding);
    for (const std::u16string &entry : entries) index.add(entry);
    return index;
  }

  Numbers beginning(const std::vector<std::u16string> &entries, std::u16string_view substring) {
    return numbersOf(indexOf(everything, entries).matches(substring).beginning);
  }

  Numbers containing(const std::vector<std::u16string> &entries, std::u16string_view substring) {
    return numbersOf(indexOf(everything, entries).matches(substring).containing);
  }

  static Numbers numbersOf(const EntrySet &set) {
    Numbers numbers;
    set.appendTo(numbers);
    EXPECT_EQ(numbers.size(), set.count());
    return numbers;
  }
};

}  // namespace

TEST_F(CompletionIndexTest, AnEntryThatBeginsWithTheSubstringIsNotAmongTheOthersThatContainIt) {
  const std::vector<std::u16string> entries = {u"Anna", u"Dan", u"Brian", u"ANDY", u"Anan"};
  EXPECT_EQ(beginning(entries, u"an"), (Numbers{0, 3, 4}));
  EXPECT_EQ(containing(entries, u"an"), (Numbers{1, 2}));
}

TEST_F(CompletionIndexTest, WhatReachesFromOneEntryIntoTheNextIsNoMatch) {
  EXPECT_EQ(beginning({u"xa", u"nna", u"an"}, u"an"), Numbers{2});
  EXPECT_EQ(containing({u"xa", u"nna", u"", u"an"}, u"an"), Numbers{});
}

TEST_F(CompletionIndexTest, AMatchIsFoundBehindAPlaceThatOnlyBeginsAndEndsLikeIt) {
  EXPECT_EQ(containing({u"xabcadc abc"}, u"abc"), Numbers{0});
  EXPECT_EQ(containing({u"xaacab"}, u"acab"), Numbers{0});
  EXPECT_EQ(containing({u"xaxb"}, u"acb"), Numbers{});
}

TEST_F(CompletionIndexTest, EveryPlaceOfALongEntryIsLookedAt) {
  for (std::size_t place = 1; place < 300; ++place) {
    std::u16string entry(300, u'.');
    entry[place] = u'x';
    EXPECT_EQ(containing({entry}, u"X"), Numbers{0}) << place;
    if (place > 1) EXPECT_EQ(containing({entry}, u".x"), Numbers{0}) << place;
    entry[0] = u'\u4E2D';
    EXPECT_EQ(containing({entry}, u"X"), Numbers{0}) << place;
  }
}

TEST_F(CompletionIndexTest, EntriesOfAllScriptsKeepTheOrderOfTheBook) {
  const std::vector<std::u16string> entries = {u"\u4E2D a", u"x a", u"\u00E9 a", u"\u4E2D a", u"a"};
  EXPECT_EQ(containing(entries, u"a"), (Numbers{0, 1, 2, 3}));
  EXPECT_EQ(beginning(entries, u"\u4E2D"), (Numbers{0, 3}));
}

TEST_F(CompletionIndexTest, ASubstringLongerThanAnyEntryIsInNone) {
  EXPECT_EQ(beginning({u"anna", u"an"}, u"annab"), Numbers{});
  EXPECT_EQ(containing({u"anna", u"an"}, u"annaan"), Numbers{});
  EXPECT_EQ(containing({u"anna", u"an"}, std::u16string(100000, u'a')), Numbers{});
}

TEST_F(CompletionIndexTest, AnIndexWithoutEntriesFindsNone) {
  EXPECT_EQ(beginning({}, u"a"), Numbers{});
  EXPECT_EQ(beginning({}, u""), Numbers{});
}

TEST_F(CompletionIndexTest, EveryEntryBeginsWithTheEmptySubstring) {
  EXPECT_EQ(beginning({u"b", u"", u"a"}, u""), (Numbers{0, 1, 2}));
}

TEST_F(CompletionIndexTest, AnEntryThatWasAddedLaterIsFound) {
  CompletionIndex index = indexOf(everything, {u"Anna"});
  EXPECT_EQ(numbersOf(index.matches(u"d").containing), Numbers{});
  index.add(u"Brenda");
  EXPECT_EQ(numbersOf(index.matches(u"d").containing), Numbers{1});
  EXPECT_EQ(index.size(), 2u);
}

TEST_F(CompletionIndexTest, AnEntryThatTheFoldingDoesNotDecideIsLeftToThePlatform) {
  const CompletionIndex index = indexOf(ascii, {u"Anna", u"\u00C9mile", u"tab\t", u"Dan"});
  const auto matches = index.matches(u"an");
  EXPECT_EQ(numbersOf(matches.beginning), Numbers{0});
  EXPECT_EQ(numbersOf(matches.containing), Numbers{3});
  EXPECT_EQ(matches.undecided, (Numbers{1, 2}));
}

TEST_F(CompletionIndexTest, ASubstringThatTheFoldingDoesNotDecideLeavesAllToThePlatform) {
  const CompletionIndex index = indexOf(ascii, {u"Anna", u"\u00C9mile"});
  for (const std::u16string_view substring : {u"\u00E9", u"", u"an\u0301"}) {
    const auto matches = index.matches(substring);
    EXPECT_EQ(matches.undecided, (Numbers{0, 1}));
    EXPECT_EQ(matches.beginning.count() + matches.containing.count(), 0u);
  }
}

TEST_F(CompletionIndexTest, ItsMemoryGrowsWithTheText) {
  const CompletionIndex small = indexOf(everything, {u"a"});
  const CompletionIndex large = indexOf(everything, {std::u16string(5000, u'a')});
  EXPECT_GE(large.bytes(), small.bytes() + 4000);
}
