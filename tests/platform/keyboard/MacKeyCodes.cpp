#include "platform/gnustep/keyboard/MacKeyCodes.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

constexpr unsigned kServerCodes = 256;

/// The Mac codes of keys that stand side by side, from the first one's server code on.
std::string row(unsigned first, unsigned last) {
  std::string codes;
  for (unsigned code = first; code <= last; ++code) {
    codes += std::to_string(macKeyCode(code)) + (code == last ? "" : " ");
  }
  return codes;
}

}  // namespace

TEST(MacKeyCodes, LettersGoByTheirPlace) {
  EXPECT_EQ(row(24, 35), "12 13 14 15 17 16 32 34 31 35 33 30");  // Q to P, [ and ]
  EXPECT_EQ(row(38, 48), "0 1 2 3 5 4 38 40 37 41 39");           // A to L, ; and '
  EXPECT_EQ(row(52, 61), "6 7 8 9 11 45 46 43 47 44");            // Z to M, comma, . and /
}

TEST(MacKeyCodes, DigitsGoByTheirPlace) {
  EXPECT_EQ(row(10, 21), "18 19 20 21 23 22 26 28 25 29 27 24");  // 1 to 0, - and =
}

TEST(MacKeyCodes, KeysThatWriteNothingHaveTheirCodes) {
  EXPECT_EQ(macKeyCode(9), 53);   // Escape
  EXPECT_EQ(macKeyCode(22), 51);  // Backspace
  EXPECT_EQ(macKeyCode(23), 48);  // Tab
  EXPECT_EQ(macKeyCode(36), 36);  // Return
  EXPECT_EQ(macKeyCode(65), 49);  // Space
  EXPECT_EQ(row(110, 119), "115 126 116 123 124 119 125 121 114 117");
}

TEST(MacKeyCodes, FunctionKeysHaveTheirCodes) {
  EXPECT_EQ(row(67, 76) + " " + row(95, 96), "122 120 99 118 96 97 98 100 101 109 103 111");
}

TEST(MacKeyCodes, TheKeypadHasItsOwnCodes) {
  EXPECT_EQ(row(79, 91), "89 91 92 78 86 87 88 69 83 84 85 82 65");
  EXPECT_EQ(row(104, 106), "76 62 75");  // Enter, right Control, /
}

TEST(MacKeyCodes, ModifiersAreToldApartByTheirSide) {
  EXPECT_EQ(macKeyCode(50), 56);
  EXPECT_EQ(macKeyCode(62), 60);
  EXPECT_EQ(macKeyCode(37), 59);
  EXPECT_EQ(macKeyCode(105), 62);
  EXPECT_EQ(macKeyCode(64), 58);
  EXPECT_EQ(macKeyCode(108), 61);
}

TEST(MacKeyCodes, NoTwoKeysShareACode) {
  std::set<unsigned> codes;
  int keys = 0;
  for (unsigned code = 0; code < kServerCodes; ++code) {
    if (macKeyCode(code) == kNoMacKey) continue;
    ++keys;
    codes.insert(macKeyCode(code));
  }
  EXPECT_EQ(keys, 105);
  EXPECT_EQ(codes.size(), 105u);
}

TEST(MacKeyCodes, OtherKeysAndNumbersMeanNothing) {
  for (const unsigned code : {0u, 7u, 8u, 92u, 123u, 255u, 256u, 65535u}) {
    EXPECT_EQ(macKeyCode(code), kNoMacKey) << code;
  }
}
