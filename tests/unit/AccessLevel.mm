#import "windows/share/AccessLevel.h"

#include <gtest/gtest.h>

#include "tests/support/Strings.h"

TEST(AccessLevel, ANameIsTheCapitalizedFirstAndLastName) {
  EXPECT_EQ(text(displayName(@"anna", @"von meier", @"a@x.de")), "Anna Von Meier");
  EXPECT_EQ(text(displayName(@"ZOË", @"O'NEIL", @"z@x.de")),
            text([@"ZOË O'NEIL" capitalizedString]));
}

TEST(AccessLevel, WithoutAFirstNameTheAddressIsTheName) {
  EXPECT_EQ(text(displayName(@"", @"Meier", @"a@x.de")), "a@x.de");
  EXPECT_EQ(text(displayName(nil, @"Meier", @"a@x.de")), "a@x.de");
}

TEST(AccessLevel, WithoutALastNameTheFirstStaysWithItsBlank) {
  EXPECT_EQ(text(displayName(@"anna", @"", @"a@x.de")), "Anna ");
  EXPECT_EQ(text(displayName(@"anna", nil, @"a@x.de")), "Anna ");
}
