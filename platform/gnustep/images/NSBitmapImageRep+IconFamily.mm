#import <AppKit/AppKit.h>

#include <algorithm>
#include <cstdint>
#include <span>

#import "platform/gnustep/runtime/MethodReplacement.h"

/// The platform reads all sizes of an icon file but 64 pixels, at which alerts show it, and would
/// scale another one.
@interface NSBitmapImageRep (IconFamily)
@end

namespace {

constexpr uint32_t kFamilyType = 'icns';
constexpr uint32_t kSixtyFourPixelsType = 'icp6';
constexpr size_t kHeadBytes = 8;

constinit platform::ReplacedMethod<NSArray *(NSData *)> platformReader;

uint32_t bigEndian(std::span<const uint8_t> bytes, size_t offset) {
  return uint32_t{bytes[offset]} << 24 | uint32_t{bytes[offset + 1]} << 16 |
         uint32_t{bytes[offset + 2]} << 8 | uint32_t{bytes[offset + 3]};
}

/// The content of the file's 64-pixel picture, nil if there is none. Every element, like the whole
/// file, begins with its type and its length, head included.
NSData *sixtyFourPixels(NSData *file) {
  std::span<const uint8_t> rest(static_cast<const uint8_t *>([file bytes]), [file length]);
  if (rest.size() < kHeadBytes || bigEndian(rest, 0) != kFamilyType) return nil;
  rest = rest.subspan(kHeadBytes);
  while (rest.size() >= kHeadBytes) {
    const size_t length = bigEndian(rest, 4);
    if (length < kHeadBytes || length > rest.size()) return nil;
    if (bigEndian(rest, 0) == kSixtyFourPixelsType) {
      return [NSData dataWithBytes:rest.data() + kHeadBytes length:length - kHeadBytes];
    }
    rest = rest.subspan(length);
  }
  return nil;
}

/// The 64-pixel picture goes in front of the first larger one, because the first representation
/// decides on the size of the image, and the last one is scaled up where none is large enough.
NSArray *representations(id self, SEL selector, NSData *data) {
  NSArray *const known = platformReader(self, selector, data);
  NSData *const content = sixtyFourPixels(data);
  if (content == nil) return known;
  NSBitmapImageRep *const found = [NSBitmapImageRep imageRepWithData:content];
  if (found == nil) return known;
  NSMutableArray *const all = [NSMutableArray arrayWithArray:known];
  NSUInteger position = std::min<NSUInteger>(1, [all count]);
  while (position < [all count] && [[all
                                       objectAtIndex:position] pixelsWide] <= [found pixelsWide]) {
    ++position;
  }
  [all insertObject:found atIndex:position];
  return all;
}

}  // namespace

@implementation NSBitmapImageRep (IconFamily)

+ (void)load {
  platformReader.install(object_getClass(self), @selector(imageRepsWithData:), representations);
}

@end
