#include "platform/gnustep/desktop/DesktopLook.h"

#include <gtest/gtest.h>

using platform::isDarkTheme;
using platform::lookOf;
using platform::LookSettings;

TEST(DesktopLook, IsLightAndAnimatedWhereNobodySaysAnything) {
  EXPECT_FALSE(lookOf({}).isDark);
  EXPECT_TRUE(lookOf({}).isAnimated);
  EXPECT_EQ(lookOf({{}, {}}), lookOf({}));
}

TEST(DesktopLook, IsWhatTheFirstPlaceSaysThatSaysAnything) {
  EXPECT_TRUE(lookOf({{}, {.isDark = true}, {.isDark = false}}).isDark);
  EXPECT_FALSE(lookOf({{.isDark = false}, {.isDark = true}}).isDark);
}

TEST(DesktopLook, IsThatOfTheThemeWhereNobodySaysMore) {
  EXPECT_TRUE(lookOf({{}, {.theme = "Yaru-dark"}}).isDark);
  EXPECT_FALSE(lookOf({{.isDark = false}, {.theme = "Yaru-dark"}}).isDark);
  EXPECT_FALSE(lookOf({{.theme = "Yaru"}, {.theme = "Yaru-dark"}}).isDark);
}

TEST(DesktopLook, IsDarkWithTheDarkVariantOfALightTheme) {
  EXPECT_TRUE(lookOf({{.theme = "Adwaita"}, {.prefersDarkVariant = true}}).isDark);
  EXPECT_FALSE(lookOf({{.prefersDarkVariant = false}, {.prefersDarkVariant = true}}).isDark);
}

TEST(DesktopLook, MovesNothingWhereAnyPlaceSaysSo) {
  EXPECT_FALSE(lookOf({{.isAnimated = true}, {.isAnimated = false}}).isAnimated);
  EXPECT_TRUE(lookOf({{.isAnimated = true}, {}}).isAnimated);
}

TEST(DesktopLook, DarkThemesAreKnownByTheirNames) {
  for (const char *name : {"Adwaita-dark", "Adwaita:dark", "Arc-Dark", "Mint-Y-Dark-Aqua",
                           "Yaru-blue-dark", "HighContrastInverse", "dark"}) {
    EXPECT_TRUE(isDarkTheme(name)) << name;
  }
}

TEST(DesktopLook, OtherThemesAreLight) {
  for (const char *name : {"", "Adwaita", "Arc-Darker", "Darkly", "HighContrast", "-", "da-rk"}) {
    EXPECT_FALSE(isDarkTheme(name)) << name;
  }
}
