#import "text/TextConversion.h"

#include <gtest/gtest.h>

#include "tests/support/Strings.h"

TEST(SingleLine, AnOrdinaryTextStaysAsItIs) {
  for (NSString *plain in @[ @"", @"a.txt", @"漢字 😀", @"مجلد", @"%@%n%s", @" a " ]) {
    EXPECT_EQ(text(singleLine(plain)), text(plain));
  }
}

TEST(SingleLine, LineBreaksAndOtherControlsBecomeSpaces) {
  EXPECT_EQ(text(singleLine(@"a\r\nb\tc")), "a  b c");
  EXPECT_EQ(text(singleLine(@"a\u2028b\u2029c")), "a b c");
  const unichar odd[] = {'a', 0, 'b', 0x85, 'c', 0x7F, 'd'};
  EXPECT_EQ(text(singleLine([NSString stringWithCharacters:odd length:7])), "a b c d");
}

TEST(SingleLine, NothingCanTurnTheDirectionOfWhatFollows) {
  EXPECT_EQ(text(singleLine(@"photo\u202Egpj.exe")), "photo gpj.exe");
  EXPECT_EQ(text(singleLine(@"\u2066a\u2069\u202Ab\u202C")), " a  b ");
}

TEST(SingleLine, EmojiSequencesAndJoinedScriptsStayWhole) {
  for (NSString *joined in @[ @"👩\u200D👩\u200D👧", @"می\u200Cخواهم" ]) {
    EXPECT_EQ(text(singleLine(joined)), text(joined));
  }
}

TEST(SingleLine, NoTextIsNone) {
  EXPECT_EQ(singleLine(nil), nil);
}
