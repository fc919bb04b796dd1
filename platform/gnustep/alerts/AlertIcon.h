#import <AppKit/AppKit.h>

/// Draws an image as large as fits, by the representation with enough pixels. The platform's image
/// view draws the first one.
@interface AlertIcon : NSView {
 @private
  NSImage *_image;
}

/// image: nil draws nothing. Retained.
- (id)initWithFrame:(NSRect)frame image:(NSImage *)image;

/// The smallest of the image's representations with at least that many pixels on its longer side,
/// else the largest. One without a size in pixels (a drawing) fits always. nil when the image has
/// none.
+ (NSImageRep *)representationOf:(NSImage *)image forPixels:(NSInteger)pixels;

@end
