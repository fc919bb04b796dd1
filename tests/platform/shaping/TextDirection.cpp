#include "platform/gnustep/shaping/TextDirection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

using testing::ElementsAre;

TEST(TextDirection, TheFirstLetterWithADirectionDecides) {
  EXPECT_FALSE(text_direction::isRightToLeft(u"Latin \u05D0"));
  EXPECT_TRUE(text_direction::isRightToLeft(u"12 (\u0645 Latin"));
}

TEST(TextDirection, AParagraphWithoutLettersRunsFromLeftToRight) {
  EXPECT_FALSE(text_direction::isRightToLeft(u""));
  EXPECT_FALSE(text_direction::isRightToLeft(u"12 + 3"));
}

TEST(TextDirection, TokensKeepTheirOrderWhenHebrewIsTypedBehindThem) {
  EXPECT_FALSE(text_direction::isRightToLeft(u"\uFFFC\uFFFC\u05D0\u05D1"));
}

TEST(TextDirection, ARunFromRightToLeftIsReversed) {
  const std::vector<std::uint8_t> levels = {0, 0, 1, 1, 1, 0};
  EXPECT_THAT(text_direction::visualOrder(levels), ElementsAre(0, 1, 4, 3, 2, 5));
}

TEST(TextDirection, LatinInsideHebrewKeepsItsDirection) {
  const std::vector<std::uint8_t> levels = {1, 2, 2, 1};
  EXPECT_THAT(text_direction::visualOrder(levels), ElementsAre(3, 1, 2, 0));
}
