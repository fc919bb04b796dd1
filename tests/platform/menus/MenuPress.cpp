#include "platform/gnustep/menus/MenuPress.h"

#include <gtest/gtest.h>

using menus::Area;
using menus::MenuPress;
using menus::Point;

namespace {

constexpr double kStart = 50;
constexpr Point kPlace = {100, 200};
/// A button whose upper edge the press is on.
constexpr Area kButton = {40, 174, 140, 26};
constexpr menus::ClickLimits kLimits = {0.3, 4};

MenuPress press(const Area &selectedArea = kButton) {
  return {kStart, kPlace, selectedArea, kLimits};
}

}  // namespace

TEST(MenuPress, AReleaseSoonAndInTheSamePlaceMakesAClick) {
  EXPECT_TRUE(press().isClickWithReleaseAt(kStart + 0.3, kPlace));
}

TEST(MenuPress, ALateReleaseMakesNone) {
  EXPECT_FALSE(press().isClickWithReleaseAt(kStart + 0.31, kPlace));
}

TEST(MenuPress, AReleaseElsewhereMakesNone) {
  EXPECT_FALSE(press().isClickWithReleaseAt(kStart, {100, 205}));
  EXPECT_FALSE(press().isClickWithReleaseAt(kStart, {95, 200}));
}

TEST(MenuPress, AHandThatTremblesStillClicks) {
  EXPECT_TRUE(press().isClickWithReleaseAt(kStart, {104, 204}));
}

TEST(MenuPress, AMouseThatHasBeenElsewhereInBetweenHasNotClicked) {
  MenuPress moved = press();
  moved.moveTo({100, 220});
  moved.moveTo(kPlace);
  EXPECT_FALSE(moved.isClickWithReleaseAt(kStart, kPlace));
}

TEST(MenuPress, StaysOverTheSelectedItemAnywhereOnTheButton) {
  MenuPress moved = press();
  for (const Point place : {Point{40, 175}, Point{179, 200}, Point{110, 187}}) {
    moved.moveTo(place);
    EXPECT_TRUE(moved.isOverSelectedItem());
  }
}

TEST(MenuPress, StaysOverTheSelectedItemWhereAHandTremblesOverTheButtonsEdge) {
  MenuPress moved = press();
  moved.moveTo({100, 204});
  EXPECT_TRUE(moved.isOverSelectedItem());
}

TEST(MenuPress, IsNotOverTheSelectedItemOnceItHasLeft) {
  MenuPress moved = press();
  moved.moveTo({100, 205});
  EXPECT_FALSE(moved.isOverSelectedItem());
  moved.moveTo(kPlace);
  EXPECT_FALSE(moved.isOverSelectedItem());
}

TEST(MenuPress, WithoutAnAreaLeavesTheSelectedItemWithTheFirstRealMovement) {
  MenuPress moved = press({});
  EXPECT_TRUE(moved.isOverSelectedItem());
  moved.moveTo({104, 200});
  EXPECT_TRUE(moved.isOverSelectedItem());
  moved.moveTo({105, 200});
  EXPECT_FALSE(moved.isOverSelectedItem());
}

TEST(MenuPress, AnAreaHoldsItsUpperRowOfPixelsAndNotTheOneBelow) {
  EXPECT_TRUE(kButton.contains({40, 200}));
  EXPECT_FALSE(kButton.contains({40, 174}));
  EXPECT_FALSE(kButton.contains({40, 200.5}));
  EXPECT_FALSE(kButton.contains({180, 190}));
}
