#include "platform/gnustep/tokenfield/PillText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

pill_text::Fits atMost(std::size_t units) {
  return [units](std::u16string_view text) { return text.size() <= units; };
}

}  // namespace

TEST(PillText, LettersStayInTheirLogicalOrder) {
  const std::u16string text = u"Zo\u00EB \u05D0\u05D1 \u0628\u0628 \u6F22";
  EXPECT_EQ(pill_text::onOneLine(text), text);
}

TEST(PillText, WhatJoinsEmojiIsKept) {
  const std::u16string family = u"\U0001F468\u200D\U0001F469\u200D\U0001F467";
  EXPECT_EQ(pill_text::onOneLine(family), family);
}

TEST(PillText, ControlCharactersBecomeSpaces) {
  EXPECT_EQ(pill_text::onOneLine(u"a\nb\tc"), u"a b c");
}

TEST(PillText, TextThatFitsIsNotCut) {
  EXPECT_EQ(pill_text::truncatedInTheMiddle(u"abcdef", atMost(6)), u"abcdef");
}

TEST(PillText, BothEndsOfALongTextStay) {
  EXPECT_EQ(pill_text::truncatedInTheMiddle(u"abcdefgh", atMost(5)), u"ab\u2026gh");
}

TEST(PillText, WithoutAnyRoomTheEllipsisStays) {
  EXPECT_EQ(pill_text::truncatedInTheMiddle(u"abcdefgh", atMost(0)), u"\u2026");
}

TEST(PillText, AFamilyOfEmojiIsKeptOrDroppedWhole) {
  // Man, woman and girl joined to one emoji: 8 units.
  const std::u16string family = u"\U0001F468\u200D\U0001F469\u200D\U0001F467";
  const std::u16string text = u"ab" + family + u"cd" + family;
  EXPECT_EQ(pill_text::truncatedInTheMiddle(text, atMost(11)), u"ab\u2026" + family);
}

TEST(PillText, AnAccentIsNeverPartedFromItsLetter) {
  EXPECT_EQ(pill_text::truncatedInTheMiddle(u"e\u0301bcde\u0301", atMost(5)),
            u"e\u0301\u2026e\u0301");
}
