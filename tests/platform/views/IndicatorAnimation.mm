#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <iterator>

#import <AppKit/AppKit.h>

#include "tests/platform/theme/Contrast.h"
#include "tests/support/DueTimers.h"
#import "tests/support/Events.h"

namespace {

int turns = 0;
int livingIndicators = 0;

}  // namespace

/// Counts the steps of its animation, and its instances.
@interface CountingIndicator : NSProgressIndicator
@end

@implementation CountingIndicator

- (id)initWithFrame:(NSRect)frame {
  self = [super initWithFrame:frame];
  if (self) ++livingIndicators;
  return self;
}

- (void)dealloc {
  --livingIndicators;
  [super dealloc];
}

- (void)animate:(id)sender {
  ++turns;
  [super animate:sender];
}

@end

namespace {

/// A window on the screen with an indicator inside another view.
struct IndicatorAnimation : testing::Test {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  NSWindow *window = [[NSWindow alloc] initWithContentRect:NSMakeRect(200, 200, 200, 100)
                                                 styleMask:NSTitledWindowMask
                                                   backing:NSBackingStoreBuffered
                                                     defer:YES];
  NSView *frame = [[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 100, 100)] autorelease];
  NSProgressIndicator *indicator =
      [[[CountingIndicator alloc] initWithFrame:NSMakeRect(20, 20, 32, 32)] autorelease];

  IndicatorAnimation() {
    [window setReleasedWhenClosed:NO];
    [indicator setStyle:NSProgressIndicatorSpinningStyle];
    [frame addSubview:indicator];
    [[window contentView] addSubview:frame];
    [window orderFrontRegardless];
  }

  ~IndicatorAnimation() override {
    [indicator stopAnimation:nil];
    [window close];
    [window release];
    handlePostedEvents();
    [pool drain];
  }

  static bool turnsTwice() {
    const int before = turns;
    return handleEventsUntil([&] { return turns >= before + 2; });
  }

  /// Starts the animation and waits for a step.
  bool start() {
    [indicator startAnimation:nil];
    return turnsTwice();
  }

  static std::ptrdiff_t threadsOfThisProcess() {
    const std::filesystem::directory_iterator threads("/proc/self/task");
    return std::distance(begin(threads), end(threads));
  }

  static bool comesToRest() {
    return handleEventsUntil([] { return nothingIsDueSoon(); });
  }
};

}  // namespace

TEST_F(IndicatorAnimation, OneThatCanBeSeenTurnsUntilItIsStopped) {
  ASSERT_TRUE(start());
  EXPECT_FALSE(nothingIsDueSoon());
  [indicator stopAnimation:nil];
  EXPECT_TRUE(comesToRest());
}

TEST_F(IndicatorAnimation, AHiddenOneCostsNothingAndTurnsAgainWhenItIsShown) {
  ASSERT_TRUE(start());
  [indicator setHidden:YES];
  EXPECT_TRUE(comesToRest());
  [indicator setHidden:NO];
  EXPECT_TRUE(turnsTwice());
}

TEST_F(IndicatorAnimation, OneInAHiddenViewCostsNothingAndTurnsAgainWhenThatIsShown) {
  ASSERT_TRUE(start());
  [frame setHidden:YES];
  EXPECT_TRUE(comesToRest());
  [frame setHidden:NO];
  EXPECT_TRUE(turnsTwice());
}

TEST_F(IndicatorAnimation, OneInAWindowOffTheScreenCostsNothingAndTurnsAgainWithIt) {
  ASSERT_TRUE(start());
  [window orderOut:nil];
  EXPECT_TRUE(comesToRest());
  [window orderFrontRegardless];
  EXPECT_TRUE(turnsTwice());
}

TEST_F(IndicatorAnimation, OneInAOneShotWindowOffTheScreenCostsNothingAndTurnsAgainWithIt) {
  [window setOneShot:YES];
  ASSERT_TRUE(start());
  [window orderOut:nil];
  EXPECT_TRUE(comesToRest());
  [window orderFrontRegardless];
  EXPECT_TRUE(turnsTwice());
}

TEST_F(IndicatorAnimation, OneInAHiddenApplicationCostsNothingAndTurnsAgainWithIt) {
  ASSERT_TRUE(start());
  [NSApp hide:nil];
  EXPECT_TRUE(comesToRest());
  [NSApp unhideWithoutActivation];
  EXPECT_TRUE(turnsTwice());
}

TEST_F(IndicatorAnimation, OneThatIsTakenOutOfItsWindowCostsNothingAndTurnsAgainInIt) {
  ASSERT_TRUE(start());
  [[frame retain] autorelease];
  [frame removeFromSuperview];
  EXPECT_TRUE(comesToRest());
  [[window contentView] addSubview:frame];
  EXPECT_TRUE(turnsTwice());
}

TEST_F(IndicatorAnimation, OneThatIsStartedWhereNobodySeesItTurnsWhenItIsShown) {
  [indicator setHidden:YES];
  [indicator startAnimation:nil];
  EXPECT_TRUE(comesToRest());
  [indicator setHidden:NO];
  EXPECT_TRUE(turnsTwice());
}

TEST_F(IndicatorAnimation, OneThatWasStoppedWhileHiddenDoesNotTurnWhenItIsShown) {
  [indicator setDisplayedWhenStopped:YES];
  ASSERT_TRUE(start());
  [indicator setHidden:YES];
  [indicator stopAnimation:nil];
  const int before = turns;
  [indicator setHidden:NO];
  handlePostedEvents();
  EXPECT_TRUE(comesToRest());
  EXPECT_EQ(turns, before);
}

TEST_F(IndicatorAnimation, AThreadedOneTurnsWithoutAThreadAndCostsNothingWhenHidden) {
  const auto threads = threadsOfThisProcess();
  [indicator setUsesThreadedAnimation:YES];
  ASSERT_TRUE(start());
  EXPECT_EQ(threadsOfThisProcess(), threads);
  [indicator setHidden:YES];
  EXPECT_TRUE(comesToRest());
}

TEST_F(IndicatorAnimation, ABarThatGetsAValueCostsNothing) {
  [indicator setStyle:NSProgressIndicatorBarStyle];
  ASSERT_TRUE(start());
  [indicator setIndeterminate:NO];
  EXPECT_TRUE(comesToRest());
}

TEST_F(IndicatorAnimation,
       OneThatIsStartedWithoutAnimationsCostsNothingAndTurnsAsSoonAsThereAreAny) {
  {
    const ShownLook still({.isAnimated = false});
    const int before = turns;
    [indicator startAnimation:nil];
    EXPECT_FALSE([indicator isHidden]);
    EXPECT_TRUE(comesToRest());
    EXPECT_EQ(turns, before);
  }
  EXPECT_TRUE(turnsTwice());
}

TEST_F(IndicatorAnimation, OneThatTurnsComesToRestWhereTheUserWantsNoAnimations) {
  ASSERT_TRUE(start());
  const ShownLook still({.isAnimated = false});
  EXPECT_TRUE(comesToRest());
}

TEST_F(IndicatorAnimation, OneThatTurnsGoesWithItsWindow) {
  ASSERT_TRUE(start());
  ASSERT_EQ(livingIndicators, 1);
  [window close];
  [window release];
  window = nil;
  indicator = nil;
  [pool drain];
  pool = [[NSAutoreleasePool alloc] init];
  EXPECT_EQ(livingIndicators, 0);
  EXPECT_TRUE(nothingIsDueSoon());
}
