#include "platform/gnustep/shaping/UserCharacters.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// Man, woman and girl joined to one emoji: 8 units.
const std::u16string kFamily = u"\U0001F468\u200D\U0001F469\u200D\U0001F467";
const std::u16string kDecomposed = u"e\u0301";
/// Ka with the vowel sign I: one character, drawn in front of it.
const std::u16string kDevanagari = u"\u0915\u093F";

}  // namespace

TEST(UserCharacters, LatinTextsKeepThePlatformsGlyphs) {
  EXPECT_FALSE(user_characters::needShaping(u""));
  EXPECT_FALSE(user_characters::needShaping(u"Zo\u00EB \u201Cquoted\u201D \u2014 10 \u20AC\u2026"));
  EXPECT_FALSE(user_characters::needShaping(u"\uFFFC, \uFFFC"));
}

TEST(UserCharacters, OtherScriptsMarksAndEmojiNeedShaping) {
  for (const std::u16string &text :
       {kFamily, kDecomposed, kDevanagari, std::u16string(u"\u0645"), std::u16string(u"\u05D0"),
        std::u16string(u"\u0E01"), std::u16string(u"\u6F22"), std::u16string(u"a\u200Fb")}) {
    EXPECT_TRUE(user_characters::needShaping(u"ab " + text));
  }
}

TEST(UserCharacters, AnEmojiOfSeveralPeopleIsOneCharacter) {
  const std::u16string text = u"a" + kFamily + u"b";
  EXPECT_EQ(user_characters::endAfter(text, 1), 9U);
  for (std::size_t i = 1; i < 9; ++i) EXPECT_EQ(user_characters::beginningAt(text, i), 1U) << i;
  EXPECT_EQ(user_characters::deletionBefore(text, 9), 1U);
}

TEST(UserCharacters, ALetterIsDeletedWithItsAccent) {
  EXPECT_EQ(user_characters::deletionBefore(u"a" + kDecomposed, 3), 1U);
}

TEST(UserCharacters, SignsThatAreTypedOneByOneAreDeletedOneByOne) {
  EXPECT_EQ(user_characters::deletionBefore(kDevanagari, 2), 1U);
  // Beth with a dagesh, and ko kai with a tone.
  EXPECT_EQ(user_characters::deletionBefore(u"\u05D1\u05BC", 2), 1U);
  EXPECT_EQ(user_characters::deletionBefore(u"\u0E01\u0E48", 2), 1U);
}

TEST(UserCharacters, NothingIsDeletedBeforeTheBeginning) {
  EXPECT_EQ(user_characters::deletionBefore(u"abc", 0), 0U);
  EXPECT_EQ(user_characters::deletionBefore(u"", 0), 0U);
}

TEST(UserCharacters, HalfAnEmojiIsACharacterOfItsOwn) {
  const std::u16string text = {u'a', char16_t{0xD83D}, u'b'};
  EXPECT_EQ(user_characters::endAfter(text, 1), 2U);
  EXPECT_EQ(user_characters::deletionBefore(text, 2), 1U);
}

TEST(UserCharacters, IndexesAtAndBeyondTheEndAnswerTheEnd) {
  EXPECT_EQ(user_characters::beginningAt(u"ab", 2), 2U);
  EXPECT_EQ(user_characters::endAfter(u"ab", 2), 2U);
  EXPECT_EQ(user_characters::endAfter(u"ab", 7), 2U);
}

TEST(UserCharacters, ALineBreakIsACharacterBesideOthers) {
  EXPECT_EQ(user_characters::endAfter(u"a\n\u0301", 0), 1U);
  EXPECT_EQ(user_characters::endAfter(u"a\nb", 1), 2U);
}

TEST(UserCharacters, ThaiLinesBreakBetweenWords) {
  // "language" and "Thai", without a space between them.
  const std::u16string text = u"\u0E20\u0E32\u0E29\u0E32\u0E44\u0E17\u0E22";
  EXPECT_EQ(user_characters::lineBreakBefore(text, 0, 6), 4U);
}

TEST(UserCharacters, ALineDoesNotBeginWithAJapaneseFullStop) {
  const std::u16string text = u"\u65E5\u672C\u3002\u5B57";
  EXPECT_EQ(user_characters::lineBreakBefore(text, 0, 2), 1U);
}

TEST(UserCharacters, AWordWithoutABreakAnswersWhereTheLineBegins) {
  EXPECT_EQ(user_characters::lineBreakBefore(u"\u0645\u0645\u0645\u0645", 1, 3), 1U);
}
