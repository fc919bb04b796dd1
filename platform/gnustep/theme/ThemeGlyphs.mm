#include <initializer_list>

#include "platform/gnustep/theme/ThemeDrawing.h"
#import "platform/gnustep/theme/ThemeImages.h"

namespace theme {

namespace {

constexpr double kBoxSide = 14;
constexpr double kBoxRadius = 3.5;
constexpr double kTickWidth = 1.8;
constexpr double kArrowWidth = 1.5;

/// The box or circle, centred in a rectangle with space for the focus ring.
NSRect boxIn(NSRect rect) {
  return onPixels(
      NSMakeRect(NSMidX(rect) - kBoxSide / 2, NSMidY(rect) - kBoxSide / 2, kBoxSide, kBoxSide));
}

/// A line through points given as fractions of `rect`, with y upwards on the screen.
void strokeLine(NSRect rect, std::initializer_list<NSPoint> points, double width, NSColor *color,
                bool isFlipped) {
  NSBezierPath *const path = [NSBezierPath bezierPath];
  [path setLineWidth:width];
  [path setLineCapStyle:NSRoundLineCapStyle];
  [path setLineJoinStyle:NSRoundLineJoinStyle];
  for (const NSPoint &point : points) {
    const double y = isFlipped ? 1 - point.y : point.y;
    const NSPoint place =
        NSMakePoint(NSMinX(rect) + point.x * NSWidth(rect), NSMinY(rect) + y * NSHeight(rect));
    if ([path isEmpty]) {
      [path moveToPoint:place];
    } else {
      [path lineToPoint:place];
    }
  }
  [color set];
  [path stroke];
}

void strokeTick(NSRect rect, NSColor *color, bool isFlipped) {
  strokeLine(rect, {{0.26, 0.49}, {0.43, 0.29}, {0.75, 0.73}}, kTickWidth, color, isFlipped);
}

void strokeDash(NSRect rect, NSColor *color, bool isFlipped) {
  strokeLine(rect, {{0.27, 0.5}, {0.73, 0.5}}, kTickWidth, color, isFlipped);
}

/// The background of a check box or, with the radius of a circle, of a radio button.
void drawMarkable(NSRect box, double radius, bool isOn, const GlyphState &state) {
  if (state.hasFocus) drawFocusRing(box, radius);
  if (isOn) {
    const Rgb fill = !state.isEnabled  ? kAccentDisabled
                     : state.isPressed ? kAccentPressed
                                       : kAccent;
    fillRounded(box, radius, color(fill));
    return;
  }
  const Rgb fill = !state.isEnabled ? kButtonDisabled : state.isPressed ? kButtonPressed : kButton;
  drawSurface(box, radius, color(fill), color(state.isEnabled ? kLineMark : kLineDisabled));
}

/// Of the tick, dash or dot.
Rgb inkOnMark(const GlyphState &state) {
  return state.isEnabled ? kOnAccent : kTextDisabled;
}

void drawCheckBox(NSRect rect, bool isOn, const GlyphState &state, bool isFlipped) {
  const NSRect box = boxIn(rect);
  const bool isMarked = isOn || state.isMixed;
  drawMarkable(box, kBoxRadius, isMarked, state);
  if (!isMarked) return;
  if (state.isMixed) {
    strokeDash(box, color(inkOnMark(state)), isFlipped);
  } else {
    strokeTick(box, color(inkOnMark(state)), isFlipped);
  }
}

void drawRadio(NSRect rect, bool isOn, const GlyphState &state) {
  const NSRect box = boxIn(rect);
  drawMarkable(box, kBoxSide / 2, isOn, state);
  constexpr double kDotInset = 4.5;
  if (isOn) fillRounded(NSInsetRect(box, kDotInset, kDotInset), kBoxSide, color(inkOnMark(state)));
}

Rgb inkFor(const GlyphState &state) {
  if (!state.isEnabled) return kTextDisabled;
  return state.isOnAccent ? kOnAccent : kText;
}

/// Two small arrows, up and down.
void drawPopUpArrows(NSRect rect, const GlyphState &state, bool isFlipped) {
  NSColor *const ink = color(inkFor(state));
  strokeLine(rect, {{0.3, 0.62}, {0.5, 0.82}, {0.7, 0.62}}, kArrowWidth, ink, isFlipped);
  strokeLine(rect, {{0.3, 0.38}, {0.5, 0.18}, {0.7, 0.38}}, kArrowWidth, ink, isFlipped);
}

}  // namespace

void drawGlyph(Glyph glyph, NSRect rect, const GlyphState &state, bool isFlipped) {
  switch (glyph) {
    case Glyph::None:
      return;
    case Glyph::CheckBox:
      return drawCheckBox(rect, false, state, isFlipped);
    case Glyph::CheckBoxOn:
      return drawCheckBox(rect, true, state, isFlipped);
    case Glyph::Radio:
      return drawRadio(rect, false, state);
    case Glyph::RadioOn:
      return drawRadio(rect, true, state);
    case Glyph::PopUpArrows:
      return drawPopUpArrows(rect, state, isFlipped);
    case Glyph::PullDownArrow:
      return strokeLine(rect, {{0.26, 0.6}, {0.5, 0.36}, {0.74, 0.6}}, kArrowWidth,
                        color(inkFor(state)), isFlipped);
    case Glyph::MenuTick:
      return strokeTick(rect, color(inkFor(state)), isFlipped);
    case Glyph::MenuDash:
      return strokeDash(rect, color(inkFor(state)), isFlipped);
    case Glyph::SubmenuArrow:
      return strokeLine(rect, {{0.35, 0.72}, {0.65, 0.5}, {0.35, 0.28}}, kArrowWidth,
                        color(inkFor(state)), isFlipped);
  }
}

}  // namespace theme
