#include <gtest/gtest.h>

#include <set>

#import <AppKit/AppKit.h>

#import "platform/gnustep/images/IconPicture.h"
#include "tests/support/Strings.h"

namespace {

/// The unit in which the icon is drawn is a sixteenth of its side.
constexpr int kUnits = 16;

NSImage *icon() {
  return [NSImage imageNamed:@"025_Ostrel_Combo_Mac.icns"];
}

/// The icon as it is drawn on white ground into a square of the given side, in pixels.
NSBitmapImageRep *drawn(NSImage *image, int side) {
  const NSRect square = NSMakeRect(0, 0, side, side);
  NSImage *const ground = [[[NSImage alloc] initWithSize:square.size] autorelease];
  [ground lockFocus];
  [[NSColor whiteColor] set];
  NSRectFill(square);
  [image drawInRect:square fromRect:NSZeroRect operation:NSCompositeSourceOver fraction:1];
  NSBitmapImageRep *const result =
      [[[NSBitmapImageRep alloc] initWithFocusedViewRect:square] autorelease];
  [ground unlockFocus];
  return result;
}

/// The amount of red, 0 to 1, `x` and `y` pixels from the upper left corner: the tile has next to
/// none, the folder is almost white.
double red(NSBitmapImageRep *picture, int x, int y) {
  NSColor *const colour = [picture colorAtX:x y:y];
  return [[colour colorUsingColorSpaceName:NSCalibratedRGBColorSpace] redComponent];
}

std::set<int> sidesInPixels(NSArray *representations) {
  std::set<int> sides;
  for (NSImageRep *representation in representations) {
    sides.insert(static_cast<int>([representation pixelsWide]));
  }
  return sides;
}

struct IconAtSide : testing::TestWithParam<int> {
  const int unit = GetParam() / kUnits;
  NSBitmapImageRep *picture = drawn(icon(), GetParam());
};

INSTANTIATE_TEST_SUITE_P(Icon, IconAtSide, testing::Values(16, 32, 48, 64, 128, 256, 512));

}  // namespace

TEST(Icon, IsFoundByItsName) {
  EXPECT_TRUE([icon() isValid]);
}

TEST(Icon, IsTheApplicationsOwn) {
  EXPECT_EQ(text([[NSBundle mainBundle] objectForInfoDictionaryKey:@"NSIcon"]),
            text([icon() name]));
  EXPECT_EQ(sidesInPixels([[NSApp applicationIconImage] representations]),
            sidesInPixels([icon() representations]));
}

TEST(Icon, HasAPictureForEachSize) {
  const std::set<int> expected = {16, 32, 48, 64, 128, 256, 512};
  EXPECT_EQ(sidesInPixels([icon() representations]), expected);
}

TEST(Icon, HasPicturesThatAreNotDecodedToShowASmallerOne) {
  NSImage *const copy = [[[NSImage alloc]
      initWithContentsOfFile:[[NSBundle mainBundle] pathForImageResource:[icon() name]]]
      autorelease];
  // Drawing adds representations.
  IconPicture *const largest = [[copy representations] lastObject];
  ASSERT_EQ([largest pixelsWide], 512);
  drawn(copy, 64);
  EXPECT_FALSE([largest isDecoded]);
  drawn(copy, 512);
  EXPECT_TRUE([largest isDecoded]);
}

TEST_P(IconAtSide, ShowsAWhiteFolderOnAColouredTile) {
  EXPECT_LT(red(picture, 2 * unit, 8 * unit), 0.3);
  EXPECT_GT(red(picture, 4 * unit, 7 * unit), 0.8);
  EXPECT_GT(red(picture, 8 * unit, 12 * unit), 0.8);
}

TEST_P(IconAtSide, LeavesTheCornersClear) {
  const int last = GetParam() - 1;
  for (const int x : {0, last}) {
    for (const int y : {0, last}) EXPECT_GT(red(picture, x, y), 0.95) << x << "," << y;
  }
}

TEST_P(IconAtSide, HasEdgesThatFallBetweenTwoPixels) {
  const int y = 7 * unit + unit / 2;
  EXPECT_GT(red(picture, 3 * unit, y) - red(picture, 3 * unit - 1, y), 0.6);
  EXPECT_GT(red(picture, 13 * unit - 1, y) - red(picture, 13 * unit, y), 0.6);
}

TEST_P(IconAtSide, IsDrawnTheSameAsACopy) {
  NSBitmapImageRep *const other = drawn([[icon() copy] autorelease], GetParam());
  EXPECT_TRUE([[other TIFFRepresentation] isEqual:[picture TIFFRepresentation]]);
}
