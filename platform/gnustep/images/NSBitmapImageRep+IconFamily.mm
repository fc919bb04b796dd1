#import <AppKit/AppKit.h>

#include <cstdint>
#include <span>

#include "platform/gnustep/images/BigEndian.h"
#import "platform/gnustep/images/IconPicture.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

/// The platform reads all sizes of an icon file but 64 pixels, at which alerts show it, and would
/// scale another one. It decodes all at once, a megabyte and some milliseconds at every launch;
/// here those that are PNG files are decoded when they are needed.
@interface NSBitmapImageRep (IconFamily)
@end

namespace {

using platform::bigEndian;

constexpr uint32_t kFamilyType = 'icns';
constexpr size_t kHeadBytes = 8;

constinit platform::ReplacedMethod<NSArray *(NSData *)> platformReader;

/// The pictures of an icon file: those that are PNG files, and the rest as an icon file without
/// them, for the platform.
struct IconFamily {
  NSMutableArray *pictures = [NSMutableArray array];
  NSMutableData *rest = [NSMutableData dataWithLength:kHeadBytes];

  bool hasRest() const { return [rest length] > kHeadBytes; }

  /// The rest as a complete file.
  NSData *restAsFile() const {
    uint32_t head[] = {NSSwapHostIntToBig(kFamilyType),
                       NSSwapHostIntToBig(static_cast<unsigned>([rest length]))};
    static_assert(sizeof head == kHeadBytes);
    [rest replaceBytesInRange:NSMakeRange(0, kHeadBytes) withBytes:head];
    return rest;
  }
};

/// Every element, like the whole file, begins with its type and its length, head included. Ends at
/// one whose length cannot be right.
IconFamily familyIn(std::span<const uint8_t> file) {
  IconFamily family;
  auto left = file.subspan(kHeadBytes);
  while (left.size() >= kHeadBytes) {
    const size_t length = bigEndian(left, 4);
    if (length < kHeadBytes || length > left.size()) break;
    IconPicture *const picture = [IconPicture
        pictureWithFile:[NSData dataWithBytes:left.data() + kHeadBytes length:length - kHeadBytes]];
    if (picture != nil) {
      [family.pictures addObject:picture];
    } else {
      [family.rest appendBytes:left.data() length:length];
    }
    left = left.subspan(length);
  }
  return family;
}

/// Pictures go in front of the first larger one, but none to the very front, because the first
/// representation decides on the size of the image, and the last one is scaled up where none is
/// large enough.
void insertBySize(NSImageRep *picture, NSMutableArray *all) {
  NSUInteger position = [all count] > 0 ? 1 : 0;
  while (position < [all count] &&
         [[all objectAtIndex:position] pixelsWide] <= [picture pixelsWide]) {
    ++position;
  }
  [all insertObject:picture atIndex:position];
}

NSArray *representations(id self, SEL selector, NSData *data) {
  const std::span<const uint8_t> file(static_cast<const uint8_t *>([data bytes]), [data length]);
  if (file.size() < kHeadBytes || bigEndian(file, 0) != kFamilyType) {
    return platformReader(self, selector, data);
  }
  const IconFamily family = familyIn(file);
  NSMutableArray *const all = [NSMutableArray array];
  if (family.hasRest()) {
    [all addObjectsFromArray:platformReader(self, selector, family.restAsFile())];
  }
  for (IconPicture *picture in family.pictures) insertBySize(picture, all);
  return all;
}

}  // namespace

@implementation NSBitmapImageRep (IconFamily)

+ (void)load {
  platformReader.install(object_getClass(self), @selector(imageRepsWithData:), representations);
}

@end
