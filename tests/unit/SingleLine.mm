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

TEST(SingleLine, TheFirstAndTheLastOfEachRangeOfControlsBecomeSpaces) {
  for (const unichar end :
       {0x00, 0x1F, 0x7F, 0x9F, 0x2028, 0x2029, 0x202A, 0x202E, 0x2066, 0x2069}) {
    EXPECT_EQ(text(singleLine([NSString stringWithCharacters:&end length:1])), " ") << end;
  }
  for (const unichar neighbour : {0x21, 0x7E, 0xA0, 0x2027, 0x202F, 0x2065, 0x206A}) {
    NSString *const one = [NSString stringWithCharacters:&neighbour length:1];
    EXPECT_EQ(text(singleLine(one)), text(one)) << neighbour;
  }
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
