#include <gtest/gtest.h>

#include <vector>

#import <AppKit/AppKit.h>

namespace {

/// A picture of the given side as a PNG file.
NSData *picture(int side) {
  NSBitmapImageRep *const bitmap =
      [[[NSBitmapImageRep alloc] initWithBitmapDataPlanes:nullptr
                                               pixelsWide:side
                                               pixelsHigh:side
                                            bitsPerSample:8
                                          samplesPerPixel:4
                                                 hasAlpha:YES
                                                 isPlanar:NO
                                           colorSpaceName:NSCalibratedRGBColorSpace
                                              bytesPerRow:0
                                             bitsPerPixel:0] autorelease];
  return [bitmap representationUsingType:NSPNGFileType properties:nil];
}

/// Type, length, content; `length`, if given, replaces the correct one.
NSData *element(const char *type, NSData *content, NSUInteger length = NSNotFound) {
  if (length == NSNotFound) length = [content length] + 8;
  const uint32_t written = NSSwapHostIntToBig(static_cast<unsigned>(length));
  NSMutableData *const result = [NSMutableData dataWithBytes:type length:4];
  [result appendBytes:&written length:4];
  [result appendData:content];
  return result;
}

NSData *family(NSArray *elements) {
  NSMutableData *const content = [NSMutableData data];
  for (NSData *each in elements) [content appendData:each];
  return element("icns", content);
}

/// The sizes in pixels of the representations that are read from an icon file, in their order.
std::vector<NSInteger> sides(NSData *file) {
  std::vector<NSInteger> result;
  for (NSImageRep *each in [NSBitmapImageRep imageRepsWithData:file]) {
    result.push_back([each pixelsWide]);
  }
  return result;
}

using Sides = std::vector<NSInteger>;

}  // namespace

TEST(IconFamily, APictureOfSixtyFourPixelsIsRead) {
  EXPECT_EQ(sides(family(@[ element("icp6", picture(64)) ])), Sides{64});
}

TEST(IconFamily, ItHasOnePixelToThePoint) {
  NSData *const file = family(@[ element("icp6", picture(64)) ]);
  NSImageRep *const read = [[NSBitmapImageRep imageRepsWithData:file] objectAtIndex:0];
  EXPECT_EQ([read size].width, 64);
  EXPECT_EQ([read size].height, 64);
}

TEST(IconFamily, TheLargestPictureStaysTheLast) {
  NSData *const file = family(@[
    element("icp6", picture(64)), element("ic08", picture(256)), element("ic09", picture(512))
  ]);
  EXPECT_EQ(sides(file).back(), 512);
  EXPECT_EQ(sides(file).size(), 3u);
}

TEST(IconFamily, OtherPicturesAreReadAsEver) {
  EXPECT_EQ(sides(family(@[ element("ic08", picture(256)) ])), Sides{256});
  EXPECT_EQ(sides(picture(64)), Sides{64});
}

TEST(IconFamily, AContentThatIsNoPictureIsPassedOver) {
  NSData *const junk = [@"no picture at all" dataUsingEncoding:NSASCIIStringEncoding];
  EXPECT_EQ(sides(family(@[ element("icp6", junk), element("ic08", picture(256)) ])), Sides{256});
}

TEST(IconFamily, AnElementLongerThanTheFileIsPassedOver) {
  EXPECT_EQ(sides(family(@[ element("icp6", picture(64), 100000) ])), Sides{});
}

TEST(IconFamily, AnElementShorterThanItsHeadEndsTheSearch) {
  NSData *const file = family(@[ element("junk", [NSData data], 0), element("icp6", picture(64)) ]);
  EXPECT_EQ(sides(file), Sides{});
}
