#import "platform/gnustep/theme/QuietTheme.h"
#include "platform/gnustep/theme/ThemeDrawing.h"

namespace {

constexpr double kFieldRadius = 3.5;
constexpr double kBoxRadius = 5;
constexpr double kFocusLineWidth = 2;

bool isEdited(NSView *view) {
  return [view isKindOfClass:[NSTextField class]] &&
         [static_cast<NSTextField *>(view) currentEditor] != nil;
}

/// Whether the document view is the first responder.
bool scrollsFirstResponder(NSScrollView *view) {
  id responder = [[view window] firstResponder];
  return [responder isKindOfClass:[NSTextView class]] && responder == [view documentView];
}

/// The border of a field, thicker and in the colour of the focus ring with the keyboard focus. A
/// view here cannot draw a ring outside its bounds as on the Mac.
void drawFieldLine(NSRect rect, bool hasFocus, bool isEnabled) {
  if (hasFocus) {
    theme::strokeRounded(rect, kFieldRadius, kFocusLineWidth, theme::color(theme::kFocus, 0.8));
  } else {
    theme::strokeRounded(rect, kFieldRadius, 1,
                         theme::color(isEnabled ? theme::kLine : theme::kLineDisabled));
  }
}

/// Excludes `hole` from drawing: the title of a box is on its border.
void clipAround(NSRect hole, NSRect bounds) {
  NSBezierPath *const path = [NSBezierPath bezierPathWithRect:bounds];
  [path appendBezierPathWithRect:hole];
  [path setWindingRule:NSEvenOddWindingRule];
  [path addClip];
}

}  // namespace

@implementation QuietTheme (Fields)

- (void)drawBorderType:(NSBorderType)type frame:(NSRect)frame view:(NSView *)view {
  switch (type) {
    case NSBezelBorder: {
      const bool isControl = [view isKindOfClass:[NSControl class]];
      const bool isEnabled = !isControl || [static_cast<NSControl *>(view) isEnabled];
      theme::fillRounded(frame, kFieldRadius,
                         theme::color(isEnabled ? theme::kSurface : theme::kSurfaceDisabled));
      drawFieldLine(frame, isEdited(view), isEnabled);
      return;
    }
    case NSLineBorder:
    case NSGrooveBorder:
      [theme::color(theme::kLine) set];
      NSFrameRect(frame);
      return;
    case NSNoBorder:
      return;
  }
}

- (NSSize)sizeForBorderType:(NSBorderType)type {
  switch (type) {
    case NSNoBorder:
      return NSZeroSize;
    case NSLineBorder:
      return NSMakeSize(1, 1);
    case NSBezelBorder:
    case NSGrooveBorder:
      return NSMakeSize(2, 2);
  }
  return NSZeroSize;
}

- (void)drawScrollViewRect:(NSRect)rect inView:(NSView *)view {
  (void)rect;
  NSScrollView *const scrollView = static_cast<NSScrollView *>(view);
  const NSRect bounds = [view bounds];
  // A disabled scroller does not draw its own edge.
  [theme::color(theme::kSurface) set];
  if ([scrollView hasVerticalScroller]) NSRectFill([[scrollView verticalScroller] frame]);
  if ([scrollView hasHorizontalScroller]) NSRectFill([[scrollView horizontalScroller] frame]);
  switch ([scrollView borderType]) {
    case NSNoBorder:
      return;
    case NSLineBorder:
    case NSGrooveBorder:
      [theme::color(theme::kLine) set];
      NSFrameRect(bounds);
      return;
    case NSBezelBorder:
      theme::fillRounded(bounds, kFieldRadius, theme::color(theme::kSurface));
      drawFieldLine(bounds, scrollsFirstResponder(scrollView), true);
      return;
  }
}

#pragma mark - Frames of other controls

- (NSRect)drawFlatFrame:(NSRect)border inset:(double)inset {
  [theme::color(theme::kLine) set];
  NSFrameRect(border);
  return NSInsetRect(border, inset, inset);
}

- (NSRect)drawGrayBezel:(NSRect)border withClip:(NSRect)clip {
  (void)clip;
  return [self drawFlatFrame:border inset:2];
}

- (NSRect)drawWhiteBezel:(NSRect)border withClip:(NSRect)clip {
  (void)clip;
  return [self drawFlatFrame:border inset:2];
}

- (NSRect)drawDarkBezel:(NSRect)border withClip:(NSRect)clip {
  (void)clip;
  return [self drawFlatFrame:border inset:2];
}

- (NSRect)drawLightBezel:(NSRect)border withClip:(NSRect)clip {
  (void)clip;
  return [self drawFlatFrame:border inset:2];
}

- (NSRect)drawGroove:(NSRect)border withClip:(NSRect)clip {
  (void)clip;
  return [self drawFlatFrame:border inset:2];
}

- (NSRect)drawFramePhoto:(NSRect)border withClip:(NSRect)clip {
  (void)clip;
  return [self drawFlatFrame:border inset:2];
}

- (NSRect)drawButton:(NSRect)border withClip:(NSRect)clip {
  (void)clip;
  return [self drawFlatFrame:border inset:1];
}

- (NSRect)drawDarkButton:(NSRect)border withClip:(NSRect)clip {
  (void)clip;
  return [self drawFlatFrame:border inset:1];
}

/// The head of a table: light, with a line below and between the columns.
- (void)drawTableHeaderCell:(NSTableHeaderCell *)cell
                  withFrame:(NSRect)frame
                     inView:(NSView *)view
                      state:(GSThemeControlState)state {
  (void)cell;
  [theme::color(state == GSThemeHighlightedState ? theme::kTrack : theme::kStripe) set];
  NSRectFill(frame);
  [theme::color(theme::kLineFaint) set];
  const double bottom = [view isFlipped] ? NSMaxY(frame) - 1 : NSMinY(frame);
  NSRectFill(NSMakeRect(NSMinX(frame), bottom, NSWidth(frame), 1));
  NSRectFill(NSMakeRect(NSMaxX(frame) - 1, NSMinY(frame) + 3, 1, NSHeight(frame) - 6));
}

- (void)drawTableCornerView:(NSView *)corner withClip:(NSRect)clip {
  (void)corner;
  [theme::color(theme::kStripe) set];
  NSRectFill(clip);
}

- (void)drawBoxInClipRect:(NSRect)clip
                  boxType:(NSBoxType)type
               borderType:(NSBorderType)border
                   inView:(NSBox *)box {
  if (type != NSBoxPrimary && type != NSBoxSecondary) {
    [super drawBoxInClipRect:clip boxType:type borderType:border inView:box];
    return;
  }
  const bool hasTitle = [box titlePosition] != NSNoTitle;
  if (border != NSNoBorder) {
    [NSGraphicsContext saveGraphicsState];
    if (hasTitle) clipAround([box titleRect], [box bounds]);
    theme::drawSurface([box borderRect], kBoxRadius, theme::color(theme::kBox),
                       theme::color(theme::kBoxLine));
    [NSGraphicsContext restoreGraphicsState];
  }
  if (hasTitle) [[box titleCell] drawWithFrame:[box titleRect] inView:box];
}

@end
