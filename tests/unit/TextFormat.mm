#import "text/LocalizedText.h"

#include <gtest/gtest.h>

#include "tests/support/Strings.h"

TEST(TextFormat, AnArgumentTakesThePlaceOfItsConversion) {
  EXPECT_EQ(text(formatted(@"no %@ here", @"x@y")), "no x@y here");
  EXPECT_EQ(text(formatted(@"%1$@ first", @"a")), "a first");
  EXPECT_EQ(text(formatted(@"%@", @"")), "");
}

TEST(TextFormat, TwoPercentSignsAreOne) {
  EXPECT_EQ(text(formatted(@"100%% sure")), "100% sure");
  EXPECT_EQ(text(formatted(@"%%%%@", @"a")), "%%@");
}

TEST(TextFormat, PercentSignsInTheArgumentStay) {
  EXPECT_EQ(text(formatted(@"<%@>", @"%@%n%s%%")), "<%@%n%s%%>");
}

TEST(TextFormat, WhatIsNoConversionStaysAsItIs) {
  EXPECT_EQ(text(formatted(@"50% of %n and %s")), "50% of %n and %s");
  EXPECT_EQ(text(formatted(@"ends with %")), "ends with %");
  EXPECT_EQ(text(formatted(@"without argument: %@")), "without argument: %@");
}

TEST(TextFormat, OnlyTheFirstConversionIsOne) {
  EXPECT_EQ(text(formatted(@"%@ and %@", @"a")), "a and %@");
  EXPECT_EQ(text(formatted(@"%1$@ and %1$@, 100%%", @"a")), "a and %1$@, 100%");
}

TEST(TextFormat, NilIsTheEmptyText) {
  EXPECT_EQ(text(formatted(nil)), "");
  EXPECT_EQ(text(formatted(@"")), "");
}
