#import "platform/gnustep/images/IconPicture.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "platform/gnustep/images/BigEndian.h"

namespace {

/// The signature, and the length and the type of the head, which is always the first chunk.
constexpr std::array<uint8_t, 16> kBeginning = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
                                                0,    0,   0,   13,  'I',  'H',  'D',  'R'};
/// The head: width, height, and bits of a sample, colour type, compression, filter, interlacing.
constexpr std::array<uint8_t, 5> kPlainForm = {8, 6, 0, 0, 0};
constexpr size_t kFormOffset = kBeginning.size() + 8;

/// Larger than any icon.
constexpr uint32_t kLargestSide = 4096;

struct Sides {
  NSInteger wide = 0;
  NSInteger high = 0;
};

std::optional<Sides> sidesOf(std::span<const uint8_t> file) {
  if (file.size() < kFormOffset + kPlainForm.size()) return std::nullopt;
  if (!std::equal(kBeginning.begin(), kBeginning.end(), file.begin())) return std::nullopt;
  const auto form = file.subspan(kFormOffset, kPlainForm.size());
  if (!std::equal(kPlainForm.begin(), kPlainForm.end(), form.begin())) return std::nullopt;
  const uint32_t wide = platform::bigEndian(file, kBeginning.size());
  const uint32_t high = platform::bigEndian(file, kBeginning.size() + 4);
  if (wide == 0 || high == 0 || wide > kLargestSide || high > kLargestSide) return std::nullopt;
  return Sides{.wide = wide, .high = high};
}

}  // namespace

@implementation IconPicture

+ (IconPicture *)pictureWithFile:(NSData *)file {
  const auto sides = sidesOf({static_cast<const uint8_t *>([file bytes]), [file length]});
  if (!sides) return nil;
  IconPicture *const picture = [[[IconPicture alloc] init] autorelease];
  picture->_file = [file retain];
  [picture setPixelsWide:sides->wide];
  [picture setPixelsHigh:sides->high];
  [picture setSize:NSMakeSize(sides->wide, sides->high)];
  [picture setBitsPerSample:8];
  [picture setAlpha:YES];
  [picture setColorSpaceName:NSCalibratedRGBColorSpace];
  return picture;
}

- (void)dealloc {
  [_bitmap release];
  [_file release];
  [super dealloc];
}

- (id)copyWithZone:(NSZone *)zone {
  IconPicture *const copy = [super copyWithZone:zone];
  // Bitmaps can be changed, files cannot.
  copy->_bitmap = [_bitmap copyWithZone:zone];
  [copy->_file retain];
  return copy;
}

- (BOOL)isDecoded {
  return _bitmap != nil;
}

/// nil if the file is damaged.
- (NSBitmapImageRep *)bitmap {
  if (_bitmap == nil && _file != nil) {
    _bitmap = [[NSBitmapImageRep imageRepWithData:_file] retain];
    [_bitmap setSize:[self size]];
    [_file release];
    _file = nil;
  }
  return _bitmap;
}

- (BOOL)draw {
  return [[self bitmap] draw];
}

#pragma mark - What a bitmap answers

- (BOOL)respondsToSelector:(SEL)selector {
  if ([super respondsToSelector:selector]) return YES;
  return [NSBitmapImageRep instancesRespondToSelector:selector] && [self bitmap] != nil;
}

- (NSMethodSignature *)methodSignatureForSelector:(SEL)selector {
  return [super methodSignatureForSelector:selector]
             ?: [NSBitmapImageRep instanceMethodSignatureForSelector:selector];
}

- (id)forwardingTargetForSelector:(SEL)selector {
  (void)selector;
  return [self bitmap];
}

@end
