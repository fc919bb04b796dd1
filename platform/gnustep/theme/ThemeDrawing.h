#pragma once

#import <AppKit/AppKit.h>

#include "platform/gnustep/theme/ThemeColors.h"

/// Drawing functions for the whole theme. They draw into the current graphics context, in points;
/// main thread only.
namespace theme {

/// An autoreleased colour.
NSColor *color(Rgb rgb, double alpha = 1);

void fillRounded(NSRect rect, double radius, NSColor *color);

/// A line that lies wholly inside `rect`, as many pixels wide as its points are next to.
void strokeRounded(NSRect rect, double radius, double points, NSColor *color);

/// A filled rectangle with a border of one point.
void drawSurface(NSRect rect, double radius, NSColor *surface, NSColor *line);

/// The focus ring of a shape. It extends two points beyond `rect`.
void drawFocusRing(NSRect rect, double radius);
constexpr double kFocusRingReach = 2;

/// `text` cut at its end, with an ellipsis, so that it is at most `width` wide; `text` itself when
/// it fits.
NSString *textCutTo(NSString *text, double width, NSDictionary *attributes);

/// One line of text in the middle of the height of `rect`, cut to its width.
void drawLine(NSString *text, NSRect rect, NSDictionary *attributes, NSTextAlignment alignment);

/// `rect` rounded to whole pixels of the window that is drawn, so that its edges are sharp.
NSRect onPixels(NSRect rect);

}  // namespace theme
