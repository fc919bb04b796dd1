#import "platform/gnustep/sheets/SheetBorder.h"

@implementation SheetBorder

- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  [[NSColor controlShadowColor] set];
  NSFrameRect([self bounds]);
}

- (NSView *)hitTest:(NSPoint)point {
  (void)point;
  return nil;
}

@end
