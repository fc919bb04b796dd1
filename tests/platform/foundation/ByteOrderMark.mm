#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <string>

namespace {

/// The characters of the platform's string of these ones.
std::u16string kept(const std::u16string &characters) {
  NSString *const string =
      [NSString stringWithCharacters:reinterpret_cast<const unichar *>(characters.data())
                              length:characters.size()];
  std::u16string units([string length], u'\0');
  [string getCharacters:reinterpret_cast<unichar *>(units.data())
                  range:NSMakeRange(0, units.size())];
  return units;
}

}  // namespace

TEST(ByteOrderMark, AtTheBeginningIsACharacterLikeAnyOther) {
  for (const std::u16string characters : {u"\uFEFF", u"\uFEFFAnna", u"\uFEFF\uFEFF中"}) {
    EXPECT_EQ(kept(characters), characters);
  }
}

TEST(ByteOrderMark, OfTheOtherOrderSwapsNothing) {
  for (const std::u16string characters : {u"\uFFFE", u"\uFFFEAnna", u"\uFFFE中a"}) {
    EXPECT_EQ(kept(characters), characters);
  }
}

TEST(ByteOrderMark, LaterOnStays) {
  EXPECT_EQ(kept(u"a\uFEFF\uFFFE"), u"a\uFEFF\uFFFE");
}

TEST(ByteOrderMark, BeforeHalfAPairMakesNoString) {
  const unichar characters[] = {0xFEFF, 0xD83D};
  EXPECT_EQ([NSString stringWithCharacters:characters length:2], nil);
}
