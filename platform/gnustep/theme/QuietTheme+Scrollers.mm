#include <algorithm>

#import "platform/gnustep/theme/QuietTheme.h"
#include "platform/gnustep/theme/ThemeDrawing.h"

namespace {

constexpr double kKnobThickness = 7;

/// `rect` narrowed to the knob's thickness, across the direction of scrolling.
NSRect narrowed(NSRect rect, bool isHorizontal) {
  const double width = isHorizontal ? NSHeight(rect) : NSWidth(rect);
  const double inset = std::max(0.0, (width - kKnobThickness) / 2);
  return isHorizontal ? NSInsetRect(rect, 1, inset) : NSInsetRect(rect, inset, 1);
}

}  // namespace

/// Scrollers are a round knob on a plain surface: no arrows, no slot.
@implementation QuietTheme (Scrollers)

- (BOOL)scrollerScrollsByPageForScroller:(NSScroller *)scroller {
  (void)scroller;
  return YES;
}

- (NSCell *)cellForScrollerKnobSlot:(BOOL)isHorizontal {
  NSButtonCell *const cell =
      static_cast<NSButtonCell *>([super cellForScrollerKnobSlot:isHorizontal]);
  [cell setBordered:NO];
  return cell;
}

- (void)drawScrollerRect:(NSRect)rect
                  inView:(NSView *)view
                 hitPart:(NSScrollerPart)part
            isHorizontal:(BOOL)isHorizontal {
  NSScroller *const scroller = static_cast<NSScroller *>(view);
  // Otherwise the platform reserves space for them.
  [scroller setArrowsPosition:NSScrollerArrowsNone];
  [theme::color(theme::kSurface) set];
  NSRectFill(NSIntersectionRect([view bounds], rect));
  const NSRect knob = narrowed([scroller rectForPart:NSScrollerKnob], isHorizontal);
  const bool isPressed = part == NSScrollerKnob;
  theme::fillRounded(knob, kKnobThickness / 2,
                     theme::color(isPressed ? theme::kKnobPressed : theme::kKnob));
}

@end
