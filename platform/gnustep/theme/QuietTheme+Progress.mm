#include <algorithm>
#include <cmath>

#include "platform/gnustep/desktop/DesktopLook.h"
#import "platform/gnustep/theme/QuietTheme.h"
#include "platform/gnustep/theme/ThemeDrawing.h"
#import "platform/gnustep/views/NSProgressIndicator+Animation.h"

namespace {

constexpr int kSpokes = 8;
/// The minimum radius of a spinning indicator of the regular size.
constexpr double kRegularRadius = 12;
constexpr double kBarHeight = 6;
/// The moving part of an indeterminate bar, and its steps in one direction.
constexpr double kMovingPiece = 0.3;
constexpr int kMovingSteps = 20;

void drawSpinner(NSRect bounds, int count) {
  const NSPoint middle = NSMakePoint(NSMidX(bounds), NSMidY(bounds));
  const double radius = std::min(NSWidth(bounds), NSHeight(bounds)) / 2 - 1.5;
  for (int spoke = 0; spoke < kSpokes; ++spoke) {
    const double angle = 2 * M_PI * spoke / kSpokes;
    const NSPoint direction = NSMakePoint(std::cos(angle), std::sin(angle));
    NSBezierPath *const path = [NSBezierPath bezierPath];
    [path setLineCapStyle:NSRoundLineCapStyle];
    [path setLineWidth:radius >= kRegularRadius ? 3 : 1.8];
    [path moveToPoint:NSMakePoint(middle.x + direction.x * radius * 0.5,
                                  middle.y + direction.y * radius * 0.5)];
    [path
        lineToPoint:NSMakePoint(middle.x + direction.x * radius, middle.y + direction.y * radius)];
    // The spoke at the count is the darkest, and the others fade.
    const int age = ((count - spoke) % kSpokes + kSpokes) % kSpokes;
    [theme::color(theme::kText, 0.65 - 0.5 * age / (kSpokes - 1)) set];
    [path stroke];
  }
}

/// Three dots in a row, as after "Loading": they say without moving that something runs.
void drawDots(NSRect bounds) {
  constexpr int kDots = 3;
  const double side = std::min(NSWidth(bounds), NSHeight(bounds));
  const double diameter = side / 4.5;
  const double step = (side - diameter) / (kDots - 1);
  for (int dot = 0; dot < kDots; ++dot) {
    const double x = NSMidX(bounds) - (side - diameter) / 2 + dot * step;
    const NSRect place =
        NSMakeRect(x - diameter / 2, NSMidY(bounds) - diameter / 2, diameter, diameter);
    theme::fillRounded(place, diameter / 2, theme::color(theme::kTextSecondary));
  }
}

NSRect barIn(NSRect bounds) {
  const double height = std::min<double>(kBarHeight, NSHeight(bounds));
  return theme::onPixels(
      NSMakeRect(NSMinX(bounds), NSMidY(bounds) - height / 2, NSWidth(bounds), height));
}

void drawBar(NSRect bounds, double from, double to) {
  const NSRect bar = barIn(bounds);
  const double radius = NSHeight(bar) / 2;
  theme::fillRounded(bar, radius, theme::color(theme::kTrack));
  if (to <= from) return;
  const double width = std::max(NSHeight(bar), (to - from) * NSWidth(bar));
  const double x = std::min(NSMinX(bar) + from * NSWidth(bar), NSMaxX(bar) - width);
  theme::fillRounded(NSMakeRect(x, NSMinY(bar), width, NSHeight(bar)), radius,
                     theme::color(theme::kAccent));
}

/// The whole bar, paler than a full one: neither a value nor moving.
void drawFadedBar(NSRect bounds) {
  constexpr double kPale = 0.5;
  drawBar(bounds, 0, 0);
  const NSRect bar = barIn(bounds);
  theme::fillRounded(bar, NSHeight(bar) / 2, theme::color(theme::kAccent, kPale));
}

}  // namespace

@implementation QuietTheme (Progress)

- (void)drawProgressIndicator:(NSProgressIndicator *)indicator
                   withBounds:(NSRect)bounds
                     withClip:(NSRect)clip
                      atCount:(int)count
                     forValue:(double)value {
  (void)clip;
  // The platform also draws an indicator that is not displayed when stopped.
  if ([indicator isHidden]) return;
  const bool isStill = [indicator isRunning] && !platform::currentLook().isAnimated;
  if ([indicator style] == NSProgressIndicatorSpinningStyle) {
    if (isStill) {
      drawDots(bounds);
    } else {
      drawSpinner(bounds, count);
    }
  } else if ([indicator isIndeterminate] && isStill) {
    drawFadedBar(bounds);
  } else if ([indicator isIndeterminate]) {
    const int step = count % (2 * kMovingSteps);
    const double way = std::abs(step - kMovingSteps) / static_cast<double>(kMovingSteps);
    const double from = (1 - kMovingPiece) * (1 - way);
    drawBar(bounds, from, from + kMovingPiece);
  } else {
    drawBar(bounds, 0, value);
  }
}

@end
