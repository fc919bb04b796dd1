#include "platform/gnustep/inputmethods/PreeditText.h"

#include <gtest/gtest.h>

TEST(PreeditText, ChangesAreAppliedToCodePoints) {
  PreeditText text;
  text.replace(0, 0, U"a\U0001F600c", 3);
  text.replace(2, 1, U"d", 2);
  EXPECT_EQ(text.utf8(),
            "a\xF0\x9F\x98\x80"
            "d");
}

TEST(PreeditText, TheCaretIsInUnitsOfUTF16) {
  PreeditText text;
  text.replace(0, 0, U"a\U0001F600c", 2);
  EXPECT_EQ(text.caret(), 3U);
}

TEST(PreeditText, AChangeBeyondTheTextIsCutOff) {
  PreeditText text;
  text.replace(7, 9, U"ab", 99);
  EXPECT_EQ(text.utf8(), "ab");
  EXPECT_EQ(text.caret(), 2U);
  text.replace(1, 99, U"", 1);
  EXPECT_EQ(text.utf8(), "a");
}

TEST(PreeditText, IsEmptyAtFirstAndWhenCleared) {
  PreeditText text;
  EXPECT_TRUE(text.isEmpty());
  text.replace(0, 0, U"a", 1);
  text.clear();
  EXPECT_TRUE(text.isEmpty());
  EXPECT_EQ(text.caret(), 0U);
}

TEST(PreeditText, BytesThatAreNoTextBecomeReplacements) {
  EXPECT_EQ(codePointsOf("a\xFFz"), U"a\uFFFDz");
}
