#include "platform/gnustep/shaping/TextShaper.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

using shaped_glyphs::Glyph;

text_shaper::Glyphs shaped(const std::u16string &text, double size = 13) {
  const text_shaper::Font font = {.family = "DejaVu Sans", .size = size};
  const auto glyphs = text_shaper::shape(text, {{text.size(), font}});
  return glyphs == nullptr ? text_shaper::Glyphs() : *glyphs;
}

double widthOf(const text_shaper::Glyphs &glyphs) {
  double width = 0;
  for (const Glyph glyph : glyphs) width += shaped_glyphs::width(glyph);
  return width;
}

const std::u16string kBeh = u"\u0628";
const std::u16string kLamAlef = u"\u0644\u0627";

}  // namespace

TEST(TextShaper, GivesEachUnitAGlyphOrNone) {
  EXPECT_EQ(shaped(u"\u05D0 ab").size(), 4U);
  EXPECT_TRUE(shaped(u"").empty());
}

TEST(TextShaper, ArabicLettersAreJoined) {
  const text_shaper::Glyphs alone = shaped(kBeh);
  const text_shaper::Glyphs joined = shaped(kBeh + kBeh + kBeh);
  // The initial, the medial and the final form.
  EXPECT_NE(joined[0], alone[0]);
  EXPECT_NE(joined[1], joined[0]);
  EXPECT_NE(joined[2], joined[1]);
  EXPECT_LT(shaped_glyphs::width(joined[1]), shaped_glyphs::width(alone[0]));
}

TEST(TextShaper, TheCaretCanBeInsideALigature) {
  const text_shaper::Glyphs glyphs = shaped(kLamAlef);
  EXPECT_GT(shaped_glyphs::width(glyphs[0]), 0);
  EXPECT_EQ(shaped_glyphs::width(glyphs[0]), shaped_glyphs::width(glyphs[1]));
  EXPECT_NE(glyphs[0], glyphs[1]) << "both draw the ligature";
}

TEST(TextShaper, TheLevelsTellTheDirection) {
  const text_shaper::Glyphs latin = shaped(u"ab \u05D0");
  EXPECT_EQ(shaped_glyphs::level(latin[0]), 0);
  EXPECT_EQ(shaped_glyphs::level(latin[3]), 1);
  const text_shaper::Glyphs hebrew = shaped(u"\u05D0 ab");
  EXPECT_EQ(shaped_glyphs::level(hebrew[0]), 1);
  EXPECT_EQ(shaped_glyphs::level(hebrew[2]), 2);
}

TEST(TextShaper, AnEmojiOfSeveralPeopleIsOneGlyph) {
  const text_shaper::Glyphs glyphs = shaped(u"\U0001F468\u200D\U0001F469\u200D\U0001F467");
  EXPECT_NE(glyphs[0], 0U);
  for (std::size_t i = 1; i < glyphs.size(); ++i) EXPECT_EQ(glyphs[i], 0U) << i;
}

TEST(TextShaper, ADevanagariVowelSignIsPartOfItsConsonant) {
  const text_shaper::Glyphs glyphs = shaped(u"\u0915\u093F");
  EXPECT_NE(glyphs[0], 0U);
  EXPECT_EQ(glyphs[1], 0U);
}

TEST(TextShaper, ControlCharactersAndAttachmentsAreLeftToThePlatform) {
  const text_shaper::Glyphs glyphs = shaped(u"\u05D0\t\uFFFC\u05D1\n");
  EXPECT_NE(glyphs[0], 0U);
  EXPECT_EQ(glyphs[1], 0U);
  EXPECT_EQ(glyphs[2], 0U);
  EXPECT_NE(glyphs[3], 0U);
  EXPECT_EQ(glyphs[4], 0U);
}

TEST(TextShaper, HalfAnEmojiIsDrawnAsAReplacement) {
  const text_shaper::Glyphs glyphs = shaped({u'\u05D0', char16_t{0xD83D}, u'\u05D1'});
  EXPECT_NE(glyphs[1], 0U);
  EXPECT_GT(shaped_glyphs::width(glyphs[1]), 0);
}

TEST(TextShaper, TheSameTextHasTheSameGlyphs) {
  const std::u16string text = u"\u0645\u0631\u062D\u0628\u0627";
  const text_shaper::Glyphs first = shaped(text);
  // More than are cached.
  for (char16_t letter = u'\u05D0'; letter < u'\u05EA'; ++letter) shaped({letter});
  EXPECT_EQ(shaped(text), first);
}

TEST(TextShaper, ALargerFontTakesMoreRoom) {
  EXPECT_GT(widthOf(shaped(kBeh, 26)), widthOf(shaped(kBeh, 13)));
}

TEST(TextShaper, PartsOfAParagraphHaveFontsOfTheirOwn) {
  const text_shaper::Font regular = {.family = "DejaVu Sans", .size = 13};
  const text_shaper::Font bold = {.family = "DejaVu Sans", .weight = 700, .size = 13};
  const std::u16string text = u"\u05D0\u05D0";
  const auto glyphs = text_shaper::shape(text, {{1, regular}, {2, bold}});
  ASSERT_NE(glyphs, nullptr);
  EXPECT_NE((*glyphs)[0], (*glyphs)[1]);
}

TEST(TextShaper, ACharacterThatNoFontHasTakesRoom) {
  EXPECT_GT(widthOf(shaped(u"\U0001FB00\u05D0")), widthOf(shaped(u"\u05D0")));
}

TEST(TextShaper, AHugeParagraphIsShapedWhole) {
  std::u16string text;
  for (int i = 0; i < 20000; ++i) text += u"\u05D0\u05D1 ";
  const text_shaper::Glyphs glyphs = shaped(text);
  ASSERT_EQ(glyphs.size(), text.size());
  EXPECT_EQ(glyphs[text.size() - 3], glyphs[0]);
}

TEST(TextShaper, AHugeWordIsShapedWhole) {
  const std::u16string word(20000, u'\u0628');
  const text_shaper::Glyphs glyphs = shaped(word);
  EXPECT_EQ(std::count(glyphs.begin(), glyphs.end(), 0U), 0);
}

TEST(TextShaper, GlyphsOfThePlatformHaveNoLevelAndNoWidth) {
  EXPECT_FALSE(shaped_glyphs::isShaped('a'));
  EXPECT_EQ(shaped_glyphs::level('a'), 0);
  EXPECT_EQ(shaped_glyphs::width('a'), 0);
}
