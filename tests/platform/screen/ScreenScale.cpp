#include "platform/gnustep/screen/ScreenScale.h"

#include <gtest/gtest.h>

using platform::screenScale;

TEST(ScreenScale, IsOneWhereNobodySaysAnything) {
  EXPECT_EQ(screenScale("", nullptr), 1);
  EXPECT_EQ(screenScale("Xcursor.size:\t24\n", ""), 1);
}

TEST(ScreenScale, IsTheNumberOfDotsAnInchBesideTheUsual) {
  EXPECT_EQ(screenScale("Xft.antialias:\t1\nXft.dpi:\t96\n", nullptr), 1);
  EXPECT_EQ(screenScale("Xft.dpi: 192", nullptr), 2);
  EXPECT_EQ(screenScale("*dpi: 288\n", nullptr), 3);
}

TEST(ScreenScale, IsTheFactorOfGtksWindows) {
  EXPECT_EQ(screenScale("", "2"), 2);
}

TEST(ScreenScale, IsTheLargerOfTwo) {
  EXPECT_EQ(screenScale("Xft.dpi: 192", "1"), 2);
  EXPECT_EQ(screenScale("Xft.dpi: 96", "2"), 2);
}

TEST(ScreenScale, HasQuarters) {
  EXPECT_EQ(screenScale("Xft.dpi: 120", nullptr), 1.25);
  EXPECT_EQ(screenScale("Xft.dpi: 144", nullptr), 1.5);
  EXPECT_EQ(screenScale("Xft.dpi: 163", nullptr), 1.75);
}

TEST(ScreenScale, IsNotForALittleMoreOrFewerDots) {
  EXPECT_EQ(screenScale("Xft.dpi: 101", nullptr), 1);
  EXPECT_EQ(screenScale("Xft.dpi: 72", nullptr), 1);
}

TEST(ScreenScale, StaysUsableWithNonsense) {
  EXPECT_EQ(screenScale("Xft.dpi: many", "two"), 1);
  EXPECT_EQ(screenScale("Xft.dpi: nan", "inf"), 1);
  EXPECT_EQ(screenScale("Xft.dpi: -192", "0"), 1);
  EXPECT_EQ(screenScale("Xft.dpi: 1e300", nullptr), 4);
}
