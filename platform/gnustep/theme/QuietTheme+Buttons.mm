#include <algorithm>
#include <cmath>

#import "platform/gnustep/theme/ButtonShape.h"
#import "platform/gnustep/theme/QuietTheme.h"
#include "platform/gnustep/theme/ThemeDrawing.h"
#import "platform/gnustep/theme/ThemeImages.h"

namespace theme {

namespace {

constexpr double kVisibleHeight = 22;
/// The minimum space above and below for the focus ring.
constexpr double kVisibleMargin = 2;
/// Frames from this height on are push buttons as Interface Builder makes them.
constexpr double kPushFrameHeight = 28;
constexpr double kPushSideMargin = 6;
constexpr double kPopUpSideMargin = 2;

bool isPopUp(NSCell *cell) {
  return [cell isKindOfClass:[NSPopUpButtonCell class]];
}

/// The styles with round corners; the others fill their frames.
bool isRounded(NSCell *cell) {
  if (![cell isKindOfClass:[NSButtonCell class]]) return false;
  switch ([static_cast<NSButtonCell *>(cell) bezelStyle]) {
    case NSRoundedBezelStyle:
    case NSTexturedRoundedBezelStyle:
    case NSRoundRectBezelStyle:
    case NSRecessedBezelStyle:
      return true;
    default:
      return false;
  }
}

/// The visible rectangle, vertically centred in the frame and inset by `side`.
NSRect middleOf(NSRect frame, double side) {
  const double room = frame.size.height - 2 * kVisibleMargin;
  const double height = std::min(kVisibleHeight, std::max(room, 0.0));
  const double y = frame.origin.y + std::floor((frame.size.height - height) / 2);
  return NSMakeRect(frame.origin.x + side, y, frame.size.width - 2 * side, height);
}

bool isPressed(GSThemeControlState state) {
  switch (state) {
    case GSThemeHighlightedState:
    case GSThemeHighlightedFirstResponderState:
    case GSThemeSelectedState:
    case GSThemeSelectedFirstResponderState:
      return true;
    default:
      return false;
  }
}

void drawDefaultButton(NSRect rect, bool isEnabled, bool isPressed) {
  const Rgb fill = !isEnabled ? kAccentDisabled : isPressed ? kAccentPressed : kAccent;
  fillRounded(rect, kButtonRadius, color(fill));
}

void drawPlainButton(NSRect rect, double radius, bool isEnabled, bool isPressed, bool isFlipped) {
  if (!isEnabled) {
    drawSurface(rect, radius, color(kButtonDisabled), color(kLineDisabled));
    return;
  }
  // A shadow at the lower edge.
  fillRounded(NSOffsetRect(rect, 0, isFlipped ? 0.5 : -0.5), radius, color(kLineShadow));
  drawSurface(rect, radius, color(isPressed ? kButtonPressed : kButton), color(kLine));
}

}  // namespace

NSRect visibleButtonRect(NSRect frame, NSCell *cell) {
  if (isPopUp(cell)) return visiblePopUpRect(frame);
  if (!isRounded(cell)) return frame;
  return middleOf(frame, frame.size.height >= kPushFrameHeight ? kPushSideMargin : 0);
}

NSRect visiblePopUpRect(NSRect frame) {
  return middleOf(frame, kPopUpSideMargin);
}

bool isDefaultButton(NSCell *cell) {
  if (![cell isKindOfClass:[NSButtonCell class]]) return false;
  if ([cell isKindOfClass:[NSMenuItemCell class]]) return false;
  NSButtonCell *const button = static_cast<NSButtonCell *>(cell);
  return [button isBordered] && [[button keyEquivalent] isEqual:@"\r"];
}

bool isMarkableButton(NSCell *cell) {
  NSImage *const image = [cell image];
  if (![image isKindOfClass:[ThemeImage class]]) return false;
  switch ([static_cast<ThemeImage *>(image) glyph]) {
    case Glyph::CheckBox:
    case Glyph::CheckBoxOn:
    case Glyph::Radio:
    case Glyph::RadioOn:
      return true;
    default:
      return false;
  }
}

}  // namespace theme

@implementation QuietTheme (Buttons)

/// The platform would add an image of the Return key.
- (void)setKeyEquivalent:(NSString *)key forButtonCell:(NSButtonCell *)cell {
  (void)key;
  (void)cell;
}

- (void)drawButton:(NSRect)frame
                in:(NSCell *)cell
              view:(NSView *)view
             style:(int)style
             state:(GSThemeControlState)state {
  (void)style;
  const NSRect rect = theme::visibleButtonRect(frame, cell);
  const bool isEnabled = [cell isEnabled];
  const bool isPressed = theme::isPressed(state);
  if (theme::isDefaultButton(cell)) {
    theme::drawDefaultButton(rect, isEnabled, isPressed);
  } else {
    const double radius = NSEqualRects(rect, frame) ? 0 : theme::kButtonRadius;
    theme::drawPlainButton(rect, radius, isEnabled, isPressed, [view isFlipped]);
  }
}

- (GSThemeMargins)buttonMarginsForCell:(NSCell *)cell
                                 style:(int)style
                                 state:(GSThemeControlState)state {
  (void)style;
  const bool isRounded = theme::isRounded(cell);
  const double side = isRounded ? theme::kPushSideMargin + 3 : 4;
  const double height = isRounded ? 4 : 2;
  GSThemeMargins margins = {side, side, height, height};
  if (state == GSThemeSelectedState || state == GSThemeSelectedFirstResponderState) {
    // Undoes that the platform moves the title of a pressed button to the lower right by a point.
    margins.left -= 1;
    margins.right += 1;
    margins.top -= 1;
    margins.bottom += 1;
  }
  return margins;
}

- (void)drawFocusFrame:(NSRect)frame view:(NSView *)view {
  NSCell *const cell =
      [view isKindOfClass:[NSControl class]] ? [static_cast<NSControl *>(view) cell] : nil;
  // Their focus ring is round the box, not the label, and drawn with it.
  if (theme::isMarkableButton(cell)) return;
  if ([cell isKindOfClass:[NSButtonCell class]] && [cell isBordered]) {
    const NSRect rect = theme::visibleButtonRect([view bounds], cell);
    const bool fills = NSEqualRects(rect, [view bounds]);
    theme::drawFocusRing(fills ? NSInsetRect(rect, 2, 2) : rect, fills ? 0 : theme::kButtonRadius);
    return;
  }
  theme::drawFocusRing(NSInsetRect(frame, 2, 2), 2);
}

@end
