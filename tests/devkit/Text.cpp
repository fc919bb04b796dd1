#include "devkit/base/Text.h"

#include <gtest/gtest.h>

using devkit::percentDecoded;
using devkit::validUtf8;

TEST(Text, ValidTextIsLeftAlone) {
  const std::string text("a\0 ß 写 🗂", 14);
  EXPECT_EQ(validUtf8(text), text);
}

TEST(Text, EveryByteThatIsNoUtf8IsReplaced) {
  EXPECT_EQ(validUtf8("a\xFFz"), "a\uFFFDz");
  EXPECT_EQ(validUtf8("a\xC3"), "a\uFFFD");
  EXPECT_EQ(validUtf8("\xC0\xAF"), "\uFFFD\uFFFD");
  EXPECT_EQ(validUtf8("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(validUtf8("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Text, PercentEscapesAreUndone) {
  EXPECT_EQ(percentDecoded("a%20b%2C%C3%9F%0A"), "a b,ß\n");
  EXPECT_EQ(percentDecoded("%e5%86%99"), "写");
}

TEST(Text, WhatIsNoEscapeStaysAsItIs) {
  EXPECT_EQ(percentDecoded("100% of %zz and %4"), "100% of %zz and %4");
  EXPECT_EQ(percentDecoded("%-1%+1% 1"), "%-1%+1% 1");
  EXPECT_EQ(percentDecoded("a+b"), "a+b");
}
