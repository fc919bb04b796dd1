#import "addressbook/EntryFormat.h"

#include <gtest/gtest.h>

#include "tests/support/Strings.h"

namespace {

std::string filled(NSString *format) {
  return text(EntryFormat(format).fill({u"A", u"B", u"C"}));
}

/// The platform's result for a format.
std::string platforms(NSString *format) {
  return text([NSString stringWithFormat:format, @"A", @"B", @"C"]);
}

}  // namespace

TEST(EntryFormat, FillsInAsThePlatformDoes) {
  for (NSString *format in @[
         @"%1$@ %2$@<%3$@>", @"%2$@, %1$@ <%3$@>", @"%@ %@<%@>", @"%@%@", @"%3$@", @"100%% %@",
         @"plain", @"", @"%1$@%1$@%1$@", @"漢%1$@字😀%3$@", @"%@"
       ]) {
    EXPECT_TRUE(EntryFormat(format).isSimple()) << text(format);
    EXPECT_EQ(filled(format), platforms(format)) << text(format);
  }
}

TEST(EntryFormat, LeavesEverythingElseToThePlatform) {
  for (NSString *format in @[ @"%10@|%@", @"%1$@ %2$-5@|", @"%@\0 and %@" ]) {
    EXPECT_FALSE(EntryFormat(format).isSimple()) << text(format);
    EXPECT_EQ(filled(format), platforms(format)) << text(format);
  }
}

TEST(EntryFormat, NoFormatIsTheEmptyFormat) {
  EXPECT_EQ(filled(nil), "");
}

TEST(EntryFormat, WhatIsFilledInIsNoFormat) {
  EXPECT_EQ(text(EntryFormat(@"%@<%@>").fill({u"%@%n", u"%1$@", u""})), "%@%n<%1$@>");
}
