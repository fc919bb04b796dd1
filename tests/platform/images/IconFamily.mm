#include <gtest/gtest.h>

#include <vector>

#import <AppKit/AppKit.h>

#import "platform/gnustep/images/IconPicture.h"

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

/// The only picture of an icon file that has no other.
IconPicture *pictureOf(NSData *content) {
  NSArray *const read = [NSBitmapImageRep imageRepsWithData:family(@[ element("ic08", content) ])];
  return [read count] == 1 ? [read objectAtIndex:0] : nil;
}

/// A file that ends in the middle of its picture.
NSData *damaged(NSData *file) {
  return [file subdataWithRange:NSMakeRange(0, [file length] / 2)];
}

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

TEST(IconFamily, APictureIsNotDecodedToBeRead) {
  IconPicture *const read = pictureOf(picture(256));
  EXPECT_TRUE([read isKindOfClass:[IconPicture class]]);
  EXPECT_EQ([read pixelsWide], 256);
  EXPECT_EQ([read pixelsHigh], 256);
  EXPECT_TRUE([read hasAlpha]);
  EXPECT_EQ([read bitsPerSample], 8);
  EXPECT_FALSE([read isDecoded]);
}

TEST(IconFamily, APictureIsDecodedToBeUsedAsABitmap) {
  IconPicture *const read = pictureOf(picture(256));
  ASSERT_TRUE([read respondsToSelector:@selector(samplesPerPixel)]);
  EXPECT_EQ([static_cast<id>(read) samplesPerPixel], 4);
  EXPECT_TRUE([read isDecoded]);
}

TEST(IconFamily, ACopyIsAPictureOfItsOwn) {
  IconPicture *const read = pictureOf(picture(256));
  IconPicture *const early = [[read copy] autorelease];
  EXPECT_EQ([static_cast<id>(read) samplesPerPixel], 4);
  IconPicture *const late = [[read copy] autorelease];
  EXPECT_FALSE([early isDecoded]);
  EXPECT_NE([static_cast<id>(late) bitmapData], [static_cast<id>(read) bitmapData]);
  EXPECT_NE([static_cast<id>(early) bitmapData], [static_cast<id>(read) bitmapData]);
}

TEST(IconFamily, ADamagedPictureIsNoBitmapAndDrawsNothing) {
  IconPicture *const read = pictureOf(damaged(picture(256)));
  ASSERT_NE(read, nil);
  EXPECT_FALSE([read respondsToSelector:@selector(samplesPerPixel)]);
  EXPECT_FALSE([read draw]);
}

TEST(IconFamily, APictureWithoutASizeIsPassedOver) {
  NSMutableData *const file = [[picture(64) mutableCopy] autorelease];
  [file resetBytesInRange:NSMakeRange(16, 8)];
  EXPECT_EQ(sides(family(@[ element("icp6", file), element("ic08", picture(256)) ])), Sides{256});
}
