#import "addressbook/PlatformCaseFolding.h"

#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <map>
#include <string>

namespace {

constexpr unsigned kUnits = 0x10000;

bool isSurrogate(unsigned unit) {
  return unit >= 0xD800 && unit < 0xE000;
}

NSString *stringOf(const std::u16string &units) {
  return [NSString stringWithCharacters:reinterpret_cast<const unichar *>(units.data())
                                 length:units.size()];
}

BOOL answer(NSString *format, const std::u16string &entry, const std::u16string &substring) {
  return [[NSPredicate predicateWithFormat:format, stringOf(substring)]
      evaluateWithObject:stringOf(entry)];
}

NSString *const kBegins = @"SELF BEGINSWITH[c] %@";
NSString *const kContains = @"SELF contains[c] %@";

BOOL hasCase(char16_t unit) {
  NSString *const string = stringOf({unit});
  return ![[string uppercaseString] isEqual:string] || ![[string lowercaseString] isEqual:string];
}

/// The units that the folding treats as equal, by their representative; also the units that the
/// platform knows another case of.
std::map<char16_t, std::u16string> letters(const CaseFolding &folding) {
  std::map<char16_t, std::u16string> all;
  for (unsigned unit = 0; unit < kUnits; ++unit) {
    if (!isSurrogate(unit)) all[folding(static_cast<char16_t>(unit))].push_back(unit);
  }
  @autoreleasepool {
    std::erase_if(all, [](const auto &letter) {
      return letter.second.size() == 1 && !hasCase(letter.second.front());
    });
  }
  return all;
}

std::u16string allBut(const std::u16string &units) {
  std::u16string all;
  for (unsigned unit = 0; unit < kUnits; ++unit) {
    if (!isSurrogate(unit) && units.find(unit) == std::u16string::npos) all.push_back(unit);
  }
  return all;
}

}  // namespace

TEST(PlatformCaseFolding, ThisPlatformComparesUnitByUnit) {
  EXPECT_TRUE(platformCaseFolding().coversAll());
}

TEST(PlatformCaseFolding, UnitsWithTheSameFoldingAreTheSameToThePredicates) {
  const auto all = letters(platformCaseFolding());
  EXPECT_GT(all.size(), 600u);
  for (const auto &[folded, units] : all) {
    @autoreleasepool {
      for (const char16_t unit : units) {
        const std::u16string entry(units.size(), unit);
        EXPECT_TRUE(answer(kContains, entry, units)) << std::hex << int{unit};
        EXPECT_TRUE(answer(kBegins, entry, units)) << std::hex << int{unit};
      }
    }
  }
}

TEST(PlatformCaseFolding, NoOtherUnitIsTheSameToThePredicates) {
  for (const auto &[folded, units] : letters(platformCaseFolding())) {
    @autoreleasepool {
      const std::u16string others = allBut(units);
      for (const char16_t unit : units) {
        EXPECT_FALSE(answer(kContains, others, {unit})) << std::hex << int{unit};
      }
    }
  }
}

TEST(PlatformCaseFolding, PrintableASCIIIsAsEverywhere) {
  const CaseFolding ascii;
  for (char16_t unit = u' '; unit <= u'~'; ++unit) {
    EXPECT_EQ(platformCaseFolding()(unit), ascii(unit)) << char(unit);
  }
  EXPECT_FALSE(ascii.coversAll());
  EXPECT_FALSE(ascii.covers(u'\n'));
  EXPECT_FALSE(ascii.covers(0x7F));
  EXPECT_FALSE(ascii.covers(u'\u00E9'));
}

TEST(PlatformCaseFolding, HalfASurrogatePairIsItself) {
  for (unsigned unit = 0xD800; unit < 0xE000; ++unit) {
    EXPECT_EQ(platformCaseFolding()(static_cast<char16_t>(unit)), unit);
  }
}
