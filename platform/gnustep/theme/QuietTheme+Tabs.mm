#import <objc/runtime.h>

#import "platform/gnustep/theme/QuietTheme.h"
#include "platform/gnustep/theme/SegmentLayout.h"
#include "platform/gnustep/theme/ThemeDrawing.h"

namespace {

// The Mac's distances from the frame of a tab view to the row of segments, to the box, whose upper
// edge is at the centre of the row, and to the contents.
constexpr double kSegmentsTop = 5;
constexpr double kSegmentsHeight = 24;
constexpr double kSegmentsSide = 16;
constexpr double kBoxTop = kSegmentsTop + kSegmentsHeight / 2;
constexpr double kBoxSide = 7;
constexpr double kBoxBottom = 10;
constexpr double kContentTop = 33;
constexpr double kContentSide = 10;
constexpr double kContentBottom = 13;

constexpr double kBoxRadius = 6;
constexpr double kSegmentsRadius = 6;
/// From the edge of the row to the background of the selected label.
constexpr double kPieceInset = 2;
constexpr double kPieceRadius = kSegmentsRadius - kPieceInset;

NSDictionary *labelAttributes(NSTabView *view) {
  NSFont *const font = [view font] ?: [NSFont systemFontOfSize:0];
  return @{NSFontAttributeName : font, NSForegroundColorAttributeName : theme::color(theme::kText)};
}

/// Where the segments lie, in the view's coordinates.
std::vector<NSRect> segmentRects(NSTabView *view, NSArray *items, NSDictionary *attributes) {
  std::vector<double> widths;
  for (NSTabViewItem *item in items) {
    widths.push_back([([item label] ?: @"") sizeWithAttributes:attributes].width);
  }
  const NSRect bounds = [view bounds];
  std::vector<NSRect> rects;
  for (const theme::Segment &segment :
       theme::segmentsForLabels(widths, NSWidth(bounds) - 2 * kSegmentsSide)) {
    rects.push_back(NSMakeRect(NSMinX(bounds) + kSegmentsSide + segment.x,
                               NSMinY(bounds) + kSegmentsTop, segment.width, kSegmentsHeight));
  }
  return rects;
}

/// Sets where the item can be clicked, which the platform does only when it draws the label itself.
void setClickableRect(NSTabViewItem *item, NSRect rect) {
  Ivar const field = class_getInstanceVariable([NSTabViewItem class], "_rect");
  if (field == nullptr) return;
  *reinterpret_cast<NSRect *>(reinterpret_cast<char *>(item) + ivar_getOffset(field)) = rect;
}

/// A line between two segments that are not selected.
void drawSeparator(NSRect left) {
  [theme::color(theme::kLine) set];
  NSRectFill(NSMakeRect(NSMaxX(left) - 1, NSMinY(left) + 6, 1, NSHeight(left) - 12));
}

bool hasSegments(NSTabViewType type) {
  return type != NSNoTabsBezelBorder && type != NSNoTabsLineBorder && type != NSNoTabsNoBorder;
}

}  // namespace

/// Tabs are a row of segments at the top, whatever edge the tab view asks for.
@implementation QuietTheme (Tabs)

- (CGFloat)tabHeightForType:(NSTabViewType)type {
  return hasSegments(type) ? kSegmentsHeight : 0;
}

- (NSRect)tabViewBackgroundRectForBounds:(NSRect)bounds tabViewType:(NSTabViewType)type {
  if (type == NSNoTabsNoBorder || type == NSNoTabsLineBorder) return bounds;
  const double top = hasSegments(type) ? kBoxTop : kBoxSide;
  return NSMakeRect(NSMinX(bounds) + kBoxSide, NSMinY(bounds) + top, NSWidth(bounds) - 2 * kBoxSide,
                    NSHeight(bounds) - top - kBoxBottom);
}

- (NSRect)tabViewContentRectForBounds:(NSRect)bounds
                          tabViewType:(NSTabViewType)type
                              tabView:(NSTabView *)view {
  (void)view;
  if (type == NSNoTabsNoBorder) return bounds;
  if (type == NSNoTabsLineBorder) return NSInsetRect(bounds, 1, 1);
  const double top = hasSegments(type) ? kContentTop : kContentSide;
  return NSMakeRect(NSMinX(bounds) + kContentSide, NSMinY(bounds) + top,
                    NSWidth(bounds) - 2 * kContentSide, NSHeight(bounds) - top - kContentBottom);
}

- (void)drawTabViewRect:(NSRect)rect
                 inView:(NSView *)view
              withItems:(NSArray *)items
           selectedItem:(NSTabViewItem *)selected {
  (void)rect;
  NSTabView *const tabView = static_cast<NSTabView *>(view);
  const NSTabViewType type = [tabView tabViewType];
  if (type == NSNoTabsNoBorder) return;
  const NSRect box = [self tabViewBackgroundRectForBounds:[view bounds] tabViewType:type];
  theme::drawSurface(box, kBoxRadius, theme::color(theme::kBox), theme::color(theme::kBoxLine));
  if (!hasSegments(type) || [items count] == 0) return;

  NSDictionary *const attributes = labelAttributes(tabView);
  const std::vector<NSRect> segments = segmentRects(tabView, items, attributes);
  const NSRect row = NSUnionRect(segments.front(), segments.back());
  if ([[view window] firstResponder] == view) theme::drawFocusRing(row, kSegmentsRadius);
  // Opaque, because it covers the upper edge of the box.
  theme::drawSurface(row, kSegmentsRadius, theme::color(theme::kSegments),
                     theme::color(theme::kLine));
  const NSUInteger selectedIndex = [items indexOfObjectIdenticalTo:selected];
  for (NSUInteger i = 0; i < segments.size(); ++i) {
    NSTabViewItem *const item = [items objectAtIndex:i];
    setClickableRect(item, segments[i]);
    if (i == selectedIndex) {
      theme::drawSurface(NSInsetRect(segments[i], kPieceInset, kPieceInset), kPieceRadius,
                         theme::color(theme::kSegmentChosen), theme::color(theme::kLine));
    } else if (i + 1 < segments.size() && i + 1 != selectedIndex) {
      drawSeparator(segments[i]);
    }
    const NSRect label = NSInsetRect(segments[i], theme::kSegmentPaddingMinimum, 0);
    theme::drawLine([item label] ?: @"", label, attributes, NSCenterTextAlignment);
  }
}

@end
