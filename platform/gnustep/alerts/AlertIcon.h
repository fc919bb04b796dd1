#import <AppKit/AppKit.h>

/// Draws an image as large as fits, sharply: of an image that was made in several sizes, the one
/// that has the pixels for it. The platform's image view takes the first.
@interface AlertIcon : NSView {
 @private
  NSImage *_image;
}

/// image: nil draws nothing. Retained.
- (id)initWithFrame:(NSRect)frame image:(NSImage *)image;

/// The smallest of the image's representations with at least that many pixels on its longer side,
/// else the largest. One without a pixel size of its own (a drawing) fits always. nil when the
/// image has none.
+ (NSImageRep *)representationOf:(NSImage *)image forPixels:(NSInteger)pixels;

@end
