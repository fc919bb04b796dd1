#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <string>

namespace {

NSString *stringOf(const std::u16string &characters) {
  return [NSString stringWithCharacters:reinterpret_cast<const unichar *>(characters.data())
                                 length:characters.size()];
}

std::u16string charactersOf(NSString *string) {
  std::u16string characters([string length], u'\0');
  [string getCharacters:reinterpret_cast<unichar *>(characters.data())
                  range:NSMakeRange(0, characters.size())];
  return characters;
}

const std::u16string kMarked[] = {u"\uFEFF", u"\uFEFFAnna", u"\uFEFF\uFEFF中",
                                  u"\uFFFE", u"\uFFFEAnna", u"\uFFFE中a"};

}  // namespace

TEST(ByteOrderMark, AtTheBeginningIsACharacterLikeAnyOther) {
  for (const std::u16string &characters : kMarked) {
    EXPECT_EQ(charactersOf(stringOf(characters)), characters);
  }
}

TEST(ByteOrderMark, StaysInCopiesAndInWhatIsMadeOfThem) {
  for (const std::u16string &characters : kMarked) {
    NSString *const string = stringOf(characters);
    EXPECT_EQ(charactersOf([NSMutableString stringWithString:string]), characters);
    NSMutableString *const copy = [[string mutableCopy] autorelease];
    EXPECT_EQ(charactersOf(copy), characters);
    EXPECT_EQ(charactersOf([[copy mutableCopy] autorelease]), characters);
    EXPECT_EQ(charactersOf([[copy copy] autorelease]), characters);
    EXPECT_EQ(charactersOf([copy substringFromIndex:0]), characters);
    EXPECT_EQ(charactersOf([string stringByAppendingString:@"中"]), characters + u"中");
    EXPECT_EQ(charactersOf([@"" stringByAppendingString:string]), characters);
  }
}

TEST(ByteOrderMark, StaysInAStringThatIsGivenTheMemory) {
  for (Class const cls : {[NSString class], [NSMutableString class]}) {
    auto *const memory = static_cast<unichar *>(NSZoneMalloc(NSDefaultMallocZone(), 4));
    memory[0] = 0xFFFE;
    memory[1] = 'a';
    NSString *const string = [[[cls alloc] initWithCharactersNoCopy:memory
                                                             length:2
                                                       freeWhenDone:YES] autorelease];
    EXPECT_EQ(charactersOf(string), u"\uFFFEa");
  }
}

TEST(ByteOrderMark, LaterOnStays) {
  EXPECT_EQ(charactersOf(stringOf(u"a\uFEFF\uFFFE")), u"a\uFEFF\uFFFE");
}

TEST(ByteOrderMark, AtTheBeginningOfBytesTellsTheirOrder) {
  const unsigned char bytes[] = {0xFE, 0xFF, 0, 'a'};
  NSString *const string = [[[NSString alloc] initWithBytes:bytes
                                                     length:4
                                                   encoding:NSUnicodeStringEncoding] autorelease];
  EXPECT_EQ(charactersOf(string), u"a");
}

TEST(ByteOrderMark, BeforeHalfAPairMakesNoString) {
  EXPECT_EQ(stringOf({0xFEFF, 0xD83D}), nil);
}
