#import "platform/gnustep/theme/ThemeDrawing.h"

#include <algorithm>
#include <cmath>

namespace theme {

namespace {

constexpr double kChannelMaximum = 255;
constexpr double kFocusRingWidth = 3;
constexpr unichar kEllipsis = 0x2026;

NSBezierPath *rounded(NSRect rect, double radius) {
  // For a radius of more than half a side the platform's arcs are not connected.
  const double fitting =
      std::max(0.0, std::min({radius, rect.size.width / 2, rect.size.height / 2}));
  return [NSBezierPath bezierPathWithRoundedRect:rect xRadius:fitting yRadius:fitting];
}

/// The pixels of the window that is drawn.
double pixelsAPoint() {
  NSWindow *const window = [[NSView focusView] window];
  return window == nil ? 1 : [window userSpaceScaleFactor];
}

double onPixel(double coordinate, double scale) {
  return std::round(coordinate * scale) / scale;
}

/// Where a point is no whole number of pixels its edges would be blurred.
NSRect onScaledPixels(NSRect rect) {
  return pixelsAPoint() == 1 ? rect : onPixels(rect);
}

/// At least one pixel.
double widthOnPixels(double width) {
  const double scale = pixelsAPoint();
  return std::max(1.0, std::round(width * scale)) / scale;
}

}  // namespace

NSColor *color(Rgb rgb, double alpha) {
  return [NSColor colorWithCalibratedRed:((rgb >> 16) & 0xFF) / kChannelMaximum
                                   green:((rgb >> 8) & 0xFF) / kChannelMaximum
                                    blue:(rgb & 0xFF) / kChannelMaximum
                                   alpha:alpha];
}

void fillRounded(NSRect rect, double radius, NSColor *color) {
  if (NSIsEmptyRect(rect)) return;
  [color set];
  [rounded(onScaledPixels(rect), radius) fill];
}

void strokeRounded(NSRect rect, double radius, double points, NSColor *color) {
  const double width = widthOnPixels(points);
  const NSRect middle = NSInsetRect(onScaledPixels(rect), width / 2, width / 2);
  if (NSIsEmptyRect(middle)) return;
  NSBezierPath *const path = rounded(middle, radius - width / 2);
  [path setLineWidth:width];
  [color set];
  [path stroke];
}

void drawSurface(NSRect rect, double radius, NSColor *surface, NSColor *line) {
  fillRounded(rect, radius, surface);
  strokeRounded(rect, radius, 1, line);
}

void drawFocusRing(NSRect rect, double radius) {
  const NSRect outer = NSInsetRect(rect, -kFocusRingReach, -kFocusRingReach);
  strokeRounded(outer, radius + kFocusRingReach, kFocusRingWidth, color(kFocus, kFocusRingAlpha));
}

NSString *textCutTo(NSString *text, double width, NSDictionary *attributes) {
  if ([text sizeWithAttributes:attributes].width <= width) return text;
  NSString *const ellipsis = [NSString stringWithCharacters:&kEllipsis length:1];
  NSUInteger fits = 0;
  NSUInteger tooLong = [text length];
  NSString *cut = ellipsis;
  while (fits + 1 < tooLong) {
    const NSUInteger tried = (fits + tooLong) / 2;
    // Composed character sequences are kept whole.
    const NSUInteger end = [text rangeOfComposedCharacterSequenceAtIndex:tried].location;
    NSString *const candidate = [[text substringToIndex:end] stringByAppendingString:ellipsis];
    if ([candidate sizeWithAttributes:attributes].width <= width) {
      fits = tried;
      cut = candidate;
    } else {
      tooLong = tried;
    }
  }
  return cut;
}

void drawLine(NSString *text, NSRect rect, NSDictionary *attributes, NSTextAlignment alignment) {
  NSString *const cut = textCutTo(text, rect.size.width, attributes);
  const NSSize size = [cut sizeWithAttributes:attributes];
  const double room = rect.size.width - size.width;
  NSPoint origin = rect.origin;
  if (alignment == NSCenterTextAlignment) origin.x += std::max(0.0, std::floor(room / 2));
  if (alignment == NSRightTextAlignment) origin.x += std::max(0.0, room);
  origin.y += std::floor((rect.size.height - size.height) / 2);
  [cut drawAtPoint:origin withAttributes:attributes];
}

NSRect onPixels(NSRect rect) {
  const double scale = pixelsAPoint();
  const double x = onPixel(NSMinX(rect), scale);
  const double y = onPixel(NSMinY(rect), scale);
  return NSMakeRect(x, y, onPixel(NSMaxX(rect), scale) - x, onPixel(NSMaxY(rect), scale) - y);
}

}  // namespace theme
