#include <algorithm>
#include <cmath>

#import "platform/gnustep/theme/QuietTheme.h"
#include "platform/gnustep/theme/ThemeDrawing.h"

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
  if ([indicator style] == NSProgressIndicatorSpinningStyle) {
    drawSpinner(bounds, count);
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
