#include <gtest/gtest.h>

#import <AppKit/AppKit.h>

#include "tests/support/ChildProcess.h"
#include "tests/support/Strings.h"

namespace {

// Points, in the interface's font. The windows are laid out for these.
constexpr CGFloat kFontSize = 13;
constexpr CGFloat kWidestLabel = 150;
constexpr CGFloat kWidestCheckBox = 360;
constexpr CGFloat kWidestPushButton = 96;
constexpr CGFloat kWidestMenuItem = 150;
// For what stands alone in its line: the titles of windows.
constexpr CGFloat kGrowth = 1.4;
constexpr CGFloat kGrowthAllowance = 20;

NSDictionary *tableOf(NSString *language) {
  NSString *const path = [[NSBundle mainBundle] pathForResource:@"Localizable"
                                                         ofType:@"strings"
                                                    inDirectory:nil
                                                forLocalization:language];
  NSString *const content = [NSString stringWithContentsOfFile:path
                                                      encoding:NSUTF16StringEncoding
                                                         error:NULL];
  return [content propertyListFromStringsFileFormat];
}

NSFont *interfaceFont() {
  return [NSFont systemFontOfSize:kFontSize];
}

/// The characters of a text that the interface's font has a glyph for, or those that it lacks.
NSString *charactersInFont(NSString *string, bool inFont) {
  NSCharacterSet *const covered = [interfaceFont() coveredCharacterSet];
  NSMutableString *const found = [NSMutableString string];
  for (NSUInteger i = 0; i < [string length]; ++i) {
    const unichar character = [string characterAtIndex:i];
    const bool isCovered = [covered characterIsMember:character];
    if (isCovered == inFont) [found appendFormat:@"%C", character];
  }
  return found;
}

/// Characters that the font lacks come from a Chinese or Japanese one if it is installed, in which
/// all are as wide as the font is high.
CGFloat widthOf(NSString *string) {
  NSDictionary *const attributes = @{NSFontAttributeName : interfaceFont()};
  return [charactersInFont(string, true) sizeWithAttributes:attributes].width +
         kFontSize * [charactersInFont(string, false) length];
}

BOOL isCheckBox(NSString *key) {
  return [@[
    @"unlimitedTitleKey", @"copyMeTitleKey", @"notifyMeTitleKey", @"askForEmailTitleKey",
    @"askVisitorsForEmailTitleKey"
  ] containsObject:key];
}

/// The width that the text of a key may have; without limit for all that may take several lines.
CGFloat widestFor(NSString *key, NSString *english) {
  if (isCheckBox(key)) return kWidestCheckBox;
  if ([key hasSuffix:@"ButtonTitleKey"]) return kWidestPushButton;
  if ([key hasSuffix:@"MenuTitleKey"]) return kWidestMenuItem;
  if ([key hasSuffix:@"LabelTextKey"]) return kWidestLabel;
  if ([key hasPrefix:@"accessPermission"]) return kWidestLabel;
  if ([key hasSuffix:@"TitleKey"]) return kGrowth * widthOf(english) + kGrowthAllowance;
  return CGFLOAT_MAX;
}

struct Texts : testing::TestWithParam<const char *> {
  NSDictionary *english = tableOf(@"en");
  NSDictionary *translated = tableOf(@(GetParam()));
};

using TextsInLatinLetters = Texts;

}  // namespace

TEST_P(Texts, AreAllThere) {
  EXPECT_GT([english count], 0u);
  EXPECT_EQ([translated count], [english count]);
}

TEST_P(Texts, FitWhereTheyAreShown) {
  for (NSString *key in english) {
    EXPECT_LE(widthOf([translated objectForKey:key]), widestFor(key, [english objectForKey:key]))
        << text(key) << " " << text([translated objectForKey:key]);
  }
}

TEST_P(TextsInLatinLetters, NeedNoOtherFontThanTheInterfaces) {
  for (NSString *key in english) {
    EXPECT_EQ(text(charactersInFont([translated objectForKey:key], NO)), "") << text(key);
  }
}

INSTANTIATE_TEST_SUITE_P(Languages, Texts,
                         testing::Values("en", "de", "fr", "es", "it", "pt-BR", "ja", "zh-Hans"));
INSTANTIATE_TEST_SUITE_P(Languages, TextsInLatinLetters,
                         testing::Values("en", "de", "fr", "es", "it", "pt-BR"));

TEST(TextLanguage, TheApplicationSpeaksTheLanguageOfItsUser) {
  ChildProcess program({LOCALIZED_TEXT, "--application", "cancelButtonTitleKey"},
                       {{"LANG", "pt_BR.UTF-8"}});
  EXPECT_EQ(program.waitForEnd(), 0);
  EXPECT_EQ(program.countInOutput("Cancelar\n"), 1) << program.output();
}
