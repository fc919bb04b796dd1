#include <gtest/gtest.h>

#import <AppKit/AppKit.h>

#import "platform/gnustep/theme/QuietTheme.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Strings.h"

namespace {

/// The output and the log of an application that is launched with these arguments (see Report.mm).
std::string report(const std::vector<std::string> &arguments = {}) {
  // On a desktop of its own, because the platform logs an error without a window manager.
  std::vector<std::string> command = {PRIVATE_DESKTOP_TOOL, "--window-manager", THEME_REPORT};
  command.insert(command.end(), arguments.begin(), arguments.end());
  ChildProcess program(command);
  EXPECT_EQ(program.waitForEnd(), 0) << program.output();
  return program.output();
}

struct Installation : testing::Test {
  ~Installation() override {
    [[NSUserDefaults standardUserDefaults] removeObjectForKey:@"GSTheme"];
  }

  static void choose(NSString *theme) {
    [[NSUserDefaults standardUserDefaults] setObject:theme forKey:@"GSTheme"];
  }

  static std::string active() { return text([[GSTheme theme] name]); }
};

}  // namespace

TEST_F(Installation, AnApplicationStartsWithTheTheme) {
  EXPECT_EQ(active(), "Quiet");
}

TEST_F(Installation, InstallingItAgainChangesNothing) {
  GSTheme *const before = [GSTheme theme];
  installQuietTheme();
  EXPECT_EQ([GSTheme theme], before);
}

TEST_F(Installation, AChangeOfAnotherSettingLeavesItInPlace) {
  GSTheme *const before = [GSTheme theme];
  [[NSUserDefaults standardUserDefaults] setObject:@"1" forKey:@"SomethingElse"];
  EXPECT_EQ([GSTheme theme], before);
}

TEST_F(Installation, AThemeThatTheUserChoosesLaterTakesItsPlaceAndGivesItBack) {
  GSTheme *const before = [GSTheme theme];
  choose(@"GNUstep");
  EXPECT_EQ(active(), "GNUstep");
  [[NSUserDefaults standardUserDefaults] removeObjectForKey:@"GSTheme"];
  EXPECT_EQ([GSTheme theme], before);
}

TEST_F(Installation, AThemeThatTheUserChoseBeforeStays) {
  EXPECT_NE(report({"-GSTheme", "GNUstep"}).find("theme: GNUstep\n"), std::string::npos);
}

TEST_F(Installation, AChosenThemeThatIsMissingLeavesThePlatformsOwn) {
  EXPECT_NE(report({"-GSTheme", "NoSuchTheme"}).find("theme: GNUstep\n"), std::string::npos);
}

TEST_F(Installation, TheUsersOwnFontWins) {
  EXPECT_NE(report({"-NSFont", "DejaVuSerif"}).find("font: DejaVuSerif\n"), std::string::npos);
}

TEST_F(Installation, TheUsersOwnSizeWins) {
  EXPECT_NE(report({"-NSFontSize", "17"}).find("size: 17\n"), std::string::npos);
}

TEST_F(Installation, AStartWritesNothingIntoTheLog) {
  EXPECT_EQ(report(), "theme: Quiet\nfont: Inter-Regular\nsize: 13\n");
}

TEST(InterfaceFont, TheSizesAreTheMacs) {
  EXPECT_EQ([NSFont systemFontSize], 13);
  EXPECT_EQ([NSFont smallSystemFontSize], 11);
  EXPECT_EQ([NSFont systemFontSizeForControlSize:NSMiniControlSize], 9);
  EXPECT_EQ([[NSFont systemFontOfSize:0] pointSize], 13);
  EXPECT_EQ([[NSFont menuFontOfSize:0] pointSize], 13);
  EXPECT_EQ([[NSFont toolTipsFontOfSize:0] pointSize], 11);
}

TEST(InterfaceFont, AllRolesHaveTheSameFamily) {
  const std::string family = text([[NSFont systemFontOfSize:0] familyName]);
  for (NSFont *font in @[
         [NSFont menuFontOfSize:0], [NSFont labelFontOfSize:0], [NSFont messageFontOfSize:0],
         [NSFont controlContentFontOfSize:0], [NSFont userFontOfSize:0]
       ]) {
    EXPECT_EQ(text([font familyName]), family);
  }
}
