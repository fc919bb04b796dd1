#include "platform/gnustep/menus/TypedLetters.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr double kStart = 50;

/// A menu with the application's own items, the first of which cannot be chosen.
struct TypedLetters : testing::Test {
  const std::vector<std::u16string> titles = {u"stop", u"copy link", u"send file", u"send folder",
                                              u"share folder"};
  menus::TypedLetters letters{static_cast<int>(titles.size()),
                              [this](int item, const std::u16string &text) {
                                return item > 0 && titles[item].rfind(text, 0) == 0;
                              }};
  double now = kStart;
  int highlighted = -1;

  /// Types a text at once; returns the item that is highlighted then.
  int type(const std::u16string &text) {
    for (const char16_t letter : text) {
      if (const auto item = letters.itemFor(letter, now, highlighted)) highlighted = *item;
    }
    return highlighted;
  }
};

}  // namespace

TEST_F(TypedLetters, AFirstLetterFindsTheFirstItemThatCanBeChosen) {
  EXPECT_EQ(type(u"s"), 2);
}

TEST_F(TypedLetters, TheSameLetterAgainGoesOnAndBeginsAnew) {
  EXPECT_EQ(type(u"ss"), 3);
  EXPECT_EQ(type(u"s"), 4);
  EXPECT_EQ(type(u"s"), 2);
}

TEST_F(TypedLetters, SeveralLettersAreTheBeginningOfAnItem) {
  EXPECT_EQ(type(u"send fo"), 3);
}

TEST_F(TypedLetters, AnItemThatStillFitsStaysHighlighted) {
  highlighted = 3;
  EXPECT_EQ(type(u"s"), 4);
  EXPECT_EQ(type(u"h"), 4);
}

TEST_F(TypedLetters, ALetterThatFitsNoItemIsIgnored) {
  EXPECT_EQ(type(u"z"), -1);
  EXPECT_EQ(type(u"sez"), 2);
  EXPECT_EQ(type(u"nd fo"), 3);
}

TEST_F(TypedLetters, AfterAPauseALetterIsTheFirstAgain) {
  EXPECT_EQ(type(u"se"), 2);
  now += 1.1;
  EXPECT_EQ(type(u"c"), 1);
}

TEST_F(TypedLetters, ABlankContinuesOnlyABegunItem) {
  EXPECT_FALSE(letters.canContinue(u' ', now));
  type(u"se");
  EXPECT_FALSE(letters.canContinue(u' ', now));
  type(u"nd");
  EXPECT_TRUE(letters.canContinue(u' ', now));
  EXPECT_FALSE(letters.canContinue(u' ', now + 1.1));
}

TEST(TypedLettersInAnEmptyMenu, FindNothing) {
  menus::TypedLetters letters(0, [](int, const std::u16string &) { return true; });
  EXPECT_FALSE(letters.itemFor(u'a', kStart, -1).has_value());
}
