#import "platform/gnustep/alerts/AlertIcon.h"

#include <algorithm>
#include <cmath>

namespace {

NSInteger longerSideInPixels(NSImageRep *representation) {
  return std::max([representation pixelsWide], [representation pixelsHigh]);
}

/// Whether `side` is better than `other` where `pixels` are wanted.
bool suitsBetter(NSInteger side, NSInteger other, NSInteger pixels) {
  if (side == NSImageRepMatchesDevice) side = pixels;
  if (other == NSImageRepMatchesDevice) other = pixels;
  if ((side >= pixels) != (other >= pixels)) return side >= pixels;
  return side >= pixels ? side < other : side > other;
}

/// The largest rectangle of those proportions in the middle of the bounds, on whole points.
NSRect fitted(NSSize size, NSRect bounds) {
  const CGFloat scale = std::min(NSWidth(bounds) / size.width, NSHeight(bounds) / size.height);
  const CGFloat width = std::round(size.width * scale);
  const CGFloat height = std::round(size.height * scale);
  return NSMakeRect(std::floor(NSMidX(bounds) - width / 2), std::floor(NSMidY(bounds) - height / 2),
                    width, height);
}

}  // namespace

@implementation AlertIcon

+ (NSImageRep *)representationOf:(NSImage *)image forPixels:(NSInteger)pixels {
  NSImageRep *best = nil;
  for (NSImageRep *representation in [image representations]) {
    const NSInteger side = longerSideInPixels(representation);
    if (best == nil || suitsBetter(side, longerSideInPixels(best), pixels)) best = representation;
  }
  return best;
}

- (id)initWithFrame:(NSRect)frame image:(NSImage *)image {
  if ((self = [super initWithFrame:frame])) _image = [image retain];
  return self;
}

- (void)dealloc {
  [_image release];
  [super dealloc];
}

- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  const NSRect bounds = [self bounds];
  const NSSize size = [self convertSize:bounds.size toView:nil];
  const auto pixels = static_cast<NSInteger>(std::max(size.width, size.height));
  NSImageRep *const representation = [AlertIcon representationOf:_image forPixels:pixels];
  const NSSize proportions = [representation size];
  if (proportions.width <= 0 || proportions.height <= 0) return;
  [[NSGraphicsContext currentContext] setImageInterpolation:NSImageInterpolationHigh];
  // Not drawInRect:, which draws transparent pixels as black.
  [representation drawInRect:fitted(proportions, bounds)
                    fromRect:NSZeroRect
                   operation:NSCompositeSourceOver
                    fraction:1
              respectFlipped:NO
                       hints:nil];
}

@end
