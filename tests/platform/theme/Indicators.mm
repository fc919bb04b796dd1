#include "tests/platform/theme/Contrast.h"
#include "tests/platform/theme/Themed.h"

namespace {

struct Indicators : Themed {
  NSProgressIndicator *indicator(NSProgressIndicatorStyle style, NSSize size) {
    const NSRect frame = {{20, 20}, size};
    NSProgressIndicator *const view = [[NSProgressIndicator alloc] initWithFrame:frame];
    [view setStyle:style];
    [view setDisplayedWhenStopped:YES];
    return show(view);
  }

  NSProgressIndicator *spinner(double side) {
    return indicator(NSProgressIndicatorSpinningStyle, NSMakeSize(side, side));
  }

  NSProgressIndicator *bar() { return indicator(NSProgressIndicatorBarStyle, NSMakeSize(200, 20)); }

  /// A scroll view of 200 x 100 points whose document view is five times as high.
  NSScrollView *scrolled() {
    NSScrollView *const scroll = [[NSScrollView alloc] initWithFrame:NSMakeRect(20, 20, 200, 100)];
    [scroll setHasVerticalScroller:YES];
    NSView *const document =
        [[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 180, 500)] autorelease];
    [scroll setDocumentView:document];
    return show(scroll);
  }
};

bool isWindow(theme::Rgb color) {
  return color == theme::kWindow;
}

/// The first and the last row in which the knob shows.
std::pair<int, int> rowsOfKnob(const Picture &picture) {
  std::pair<int, int> rows = {picture.height(), -1};
  for (int y = 0; y < picture.height(); ++y) {
    if (picture.at(picture.width() / 2, y) != theme::kKnob) continue;
    rows = {std::min(rows.first, y), y};
  }
  return rows;
}

}  // namespace

TEST_F(Indicators, ASpinnerIsDrawnInBothSizes) {
  for (double side : {16.0, 32.0}) {
    const Picture picture(spinner(side));
    const int all = picture.width() * picture.height();
    EXPECT_LT(picture.count(isWindow), all - 20);
    EXPECT_EQ(picture.at(0, 0), theme::kWindow);
  }
}

TEST_F(Indicators, ASpinnerTurns) {
  NSProgressIndicator *const turning = spinner(32);
  const Picture before(turning);
  [turning animate:nil];
  EXPECT_NE(Picture(turning), before);
}

TEST_F(Indicators, AStoppedOneThatIsNotToBeDisplayedIsNot) {
  NSProgressIndicator *const stopped = spinner(32);
  [stopped setDisplayedWhenStopped:NO];
  const Picture picture([window contentView], [stopped frame]);
  EXPECT_EQ(picture.count(isWindow), picture.width() * picture.height());
}

TEST_F(Indicators, ABarIsFilledAsFarAsItsValue) {
  NSProgressIndicator *const progress = bar();
  [progress setIndeterminate:NO];
  EXPECT_EQ(Picture(progress).count(theme::kAccent), 0);
  [progress setDoubleValue:25];
  const int quarter = Picture(progress).count(theme::kAccent);
  [progress setDoubleValue:100];
  EXPECT_NEAR(Picture(progress).count(theme::kAccent), 4 * quarter, 0.5 * quarter);
}

TEST_F(Indicators, ABarWithoutAValueMoves) {
  NSProgressIndicator *const progress = bar();
  [progress setIndeterminate:YES];
  const Picture before(progress);
  EXPECT_GT(before.count(theme::kAccent), 100);
  [progress animate:nil];
  EXPECT_NE(Picture(progress), before);
}

TEST_F(Indicators, WithoutAnimationsARunningOneSaysSoWithoutMoving) {
  for (NSProgressIndicator *running in @[ spinner(16), spinner(32), bar() ]) {
    [running setIndeterminate:YES];
    const Picture stopped(running);
    const ShownLook still({.isAnimated = false});
    [running startAnimation:nil];
    const Picture before(running);
    EXPECT_NE(before, stopped);
    EXPECT_LT(before.count(isWindow), before.width() * before.height() - 20);
    [running animate:nil];
    EXPECT_EQ(Picture(running), before);
    [running stopAnimation:nil];
    [running removeFromSuperview];
  }
}

TEST_F(Indicators, AScrollerIsAKnobWithoutArrows) {
  NSScroller *const scroller = [scrolled() verticalScroller];
  const Picture picture(scroller);
  EXPECT_GT(picture.count(theme::kKnob), 50);
  EXPECT_EQ(picture.count(isInk), 0);
  EXPECT_EQ([scroller arrowsPosition], NSScrollerArrowsNone);
}

TEST_F(Indicators, TheKnobReachesBothEndsOfItsWay) {
  NSScrollView *const scroll = scrolled();
  NSScroller *const scroller = [scroll verticalScroller];
  [[scroll documentView] scrollPoint:NSMakePoint(0, 500)];
  EXPECT_LE(rowsOfKnob(Picture(scroller)).first, 4);
  [[scroll documentView] scrollPoint:NSZeroPoint];
  EXPECT_GE(rowsOfKnob(Picture(scroller)).second, 100 - 5 - 4);
}

TEST_F(Indicators, AScrollerWithNothingToScrollHasNoKnob) {
  NSScrollView *const scroll = scrolled();
  [[scroll documentView] setFrameSize:NSMakeSize(180, 50)];
  const Picture picture([scroll verticalScroller]);
  EXPECT_EQ(picture.count(theme::kSurface), picture.width() * picture.height());
}
