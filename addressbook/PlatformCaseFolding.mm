#import "addressbook/PlatformCaseFolding.h"

#import <Foundation/Foundation.h>

#include <numeric>
#include <string_view>

namespace {

constexpr std::size_t kUnits = 0x10000;
constexpr char16_t kFirstSurrogate = 0xD800;
constexpr char16_t kAfterSurrogates = 0xE000;

NSString *stringOf(std::u16string_view units) {
  return [NSString stringWithCharacters:reinterpret_cast<const unichar *>(units.data())
                                 length:units.size()];
}

/// Every unit that is a character by itself.
std::u16string allCharacters() {
  std::u16string characters(kUnits - (kAfterSurrogates - kFirstSurrogate), u'\0');
  const auto surrogates = characters.begin() + kFirstSurrogate;
  std::iota(characters.begin(), surrogates, u'\0');
  std::iota(surrogates, characters.end(), kAfterSurrogates);
  return characters;
}

BOOL begins(NSString *entry, NSString *substring) {
  return [[NSPredicate predicateWithFormat:@"SELF BEGINSWITH[c] %@", substring]
      evaluateWithObject:entry];
}

BOOL contains(NSString *entry, NSString *substring) {
  return [[NSPredicate predicateWithFormat:@"SELF contains[c] %@", substring]
      evaluateWithObject:entry];
}

struct Question {
  std::u16string_view entry;
  std::u16string_view substring;
};

/// Pairs that some platform takes for the same; compared unit by unit they differ.
constexpr Question kDifferent[] = {
    {u"\u00E9", u"e\u0301"},         // composed and decomposed
    {u"e\u0301", u"\u00E9"},         //
    {u"\u00E9", u"e"},               // with and without an accent
    {u"stra\u00DFe", u"ss"},         // one letter and two
    {u"\uFB01", u"fi"},              //
    {u"\u212A", u"k"},               // the sign for kelvin
    {u"\u0130", u"i"},               // the dotted capital i
    {u"\uFF21", u"a"},               // the letter of full width
    {u"\U00010400", u"\U00010428"},  // letters of two units
    {u"\u304B", u"\u30AB"},          // the two Japanese syllabaries
    {u"", u"a"},
};

/// Pairs that are the same unit by unit, but not where an accent belongs to the letter before it.
constexpr Question kSame[] = {
    {u"e\u0301", u"e"},  //
    {u"\U0001F468\u200D\U0001F469", u"\U0001F468"},
    {u"\r\n", u"\r"},
    {u"a", u""},
    {u"", u""},
};

/// Whether two strings are the same to the predicates exactly when the folded units are.
BOOL comparesUnitByUnit(NSString *characters, NSString *foldedCharacters) {
  for (const Question &question : kDifferent) {
    NSString *const entry = stringOf(question.entry);
    NSString *const substring = stringOf(question.substring);
    if (begins(entry, substring) || contains(entry, substring)) return NO;
  }
  for (const Question &question : kSame) {
    NSString *const entry = stringOf(question.entry);
    NSString *const substring = stringOf(question.substring);
    if (!begins(entry, substring) || !contains(entry, substring)) return NO;
  }
  return begins(characters, foldedCharacters) && contains(characters, foldedCharacters);
}

CaseFolding askThePlatform() {
  @autoreleasepool {
    NSString *const characters = stringOf(allCharacters());
    NSString *const capitals = [characters uppercaseString];
    // Where a capital has another length the platform knows letters that are not one unit.
    if (characters == nil || [capitals length] != [characters length] ||
        !comparesUnitByUnit(characters, capitals)) {
      return CaseFolding();
    }
    std::u16string folded(kUnits, u'\0');
    std::iota(folded.begin(), folded.end(), u'\0');
    auto *const units = reinterpret_cast<unichar *>(folded.data());
    [capitals getCharacters:units range:NSMakeRange(0, kFirstSurrogate)];
    [capitals getCharacters:units + kAfterSurrogates
                      range:NSMakeRange(kFirstSurrogate, kUnits - kAfterSurrogates)];
    return CaseFolding(folded);
  }
}

}  // namespace

const CaseFolding &platformCaseFolding() {
  static const CaseFolding folding = askThePlatform();
  return folding;
}
