#include "tests/platform/theme/Themed.h"
#include "tests/support/Strings.h"

namespace {

struct Tabs : Themed {
  NSTabView *view = tabs(@[ @"Send File", @"Copy Link" ]);

  /// The rectangle of the tab's segment, found by hit tests. The view must have been drawn.
  static NSRect segment(NSTabView *tabs, NSInteger index) {
    [[tabs window] display];
    NSRect found = NSZeroRect;
    for (double y = 0; y < 40; ++y) {
      for (double x = 0; x < NSWidth([tabs bounds]); ++x) {
        NSTabViewItem *const item = [tabs tabViewItemAtPoint:NSMakePoint(x, y)];
        if (item != [tabs tabViewItemAtIndex:index]) continue;
        found = NSUnionRect(found, NSMakeRect(x, y, 1, 1));
      }
    }
    return found;
  }

  void click(NSInteger index) {
    const NSRect rect = segment(view, index);
    clickIn(view, NSMakePoint(NSMidX(rect), NSMidY(rect)));
  }

  NSInteger selected() const { return [view indexOfTabViewItem:[view selectedTabViewItem]]; }
};

}  // namespace

TEST_F(Tabs, AClickOnADrawnSegmentChoosesItsTab) {
  click(1);
  EXPECT_EQ(selected(), 1);
  click(0);
  EXPECT_EQ(selected(), 0);
}

TEST_F(Tabs, TheSegmentsStandInTheMiddle) {
  const NSRect row = NSUnionRect(segment(view, 0), segment(view, 1));
  EXPECT_NEAR(NSMidX(row), NSMidX([view bounds]), 1);
}

TEST_F(Tabs, TheSelectedSegmentIsWhiteAndTheOthersAreNot) {
  const Picture chosen(view, segment(view, 0));
  const Picture other(view, segment(view, 1));
  EXPECT_GT(chosen.count(theme::kSegmentChosen), 500);
  EXPECT_EQ(other.count(theme::kSegmentChosen), 0);
  EXPECT_GT(other.count(theme::kSegments), 500);
}

TEST_F(Tabs, LabelsLieInsideTheirSegments) {
  for (NSInteger i = 0; i < 2; ++i) {
    const NSRect rect = segment(view, i);
    EXPECT_GT(Picture(view, rect).count(isInk), 20);
    const NSRect left = NSMakeRect(NSMinX(rect), NSMinY(rect), 5, NSHeight(rect));
    const NSRect right = NSOffsetRect(left, NSWidth(rect) - 5, 0);
    EXPECT_EQ(Picture(view, left).count(isInk), 0);
    EXPECT_EQ(Picture(view, right).count(isInk), 0);
  }
}

TEST_F(Tabs, LabelsThatAreTooLongAreCutAndStayInsideTheView) {
  [view setHidden:YES];
  NSTabView *const longer = tabs(@[
    @"Eine sehr lange Beschriftung in einer anderen Sprache",
    @"Und noch eine, die ebenfalls keinen Platz haben wird", @"Kurz"
  ]);
  for (NSInteger i = 0; i < 3; ++i) {
    const NSRect rect = segment(longer, i);
    EXPECT_GE(NSMinX(rect), 16);
    EXPECT_LE(NSMaxX(rect), NSWidth([longer bounds]) - 16);
    const NSRect right = NSMakeRect(NSMaxX(rect) - 5, NSMinY(rect), 5, NSHeight(rect));
    EXPECT_EQ(Picture(longer, right).count(isInk), 0) << i;
  }
}

TEST_F(Tabs, ContentsHaveTheRoomThatTheyHaveOnTheMac) {
  const NSRect bounds = [view bounds];
  const NSRect contents = [view contentRect];
  EXPECT_EQ(NSWidth(contents), NSWidth(bounds) - 20);
  EXPECT_EQ(NSHeight(contents), NSHeight(bounds) - 46);
  EXPECT_EQ(NSMinX(contents), 10);
}

TEST_F(Tabs, ArrowKeysChooseTheNeighbour) {
  ASSERT_TRUE(focus(view));
  typeKey(window, NSRightArrowFunctionKey);
  EXPECT_EQ(selected(), 1);
  typeKey(window, NSRightArrowFunctionKey);
  EXPECT_EQ(selected(), 1);
  typeKey(window, NSLeftArrowFunctionKey);
  EXPECT_EQ(selected(), 0);
  typeKey(window, NSLeftArrowFunctionKey);
  EXPECT_EQ(selected(), 0);
}

TEST_F(Tabs, TheKeyboardStaysAtTheTabsWhileTheyAreChosen) {
  ASSERT_TRUE(focus(view));
  typeKey(window, NSRightArrowFunctionKey);
  EXPECT_EQ([window firstResponder], view);
}

TEST_F(Tabs, TheRowWithTheKeyboardHasARing) {
  EXPECT_EQ(Picture(view).count(isBluish), 0);
  ASSERT_TRUE(focus(view));
  EXPECT_GT(Picture(view).count(isBluish), 100);
}

TEST_F(Tabs, AClickDoesNotTakeTheKeyboardAway) {
  NSTextField *const name = field(@"Anna");
  ASSERT_TRUE(focus(name));
  clickIn(view, NSMakePoint(NSMidX([view bounds]), NSHeight([view bounds]) - 4));
  EXPECT_NE([name currentEditor], nil);
}

TEST_F(Tabs, TheTabKeyStopsAtTheRow) {
  NSTextField *const name = field(@"Anna");
  [name setNextKeyView:view];
  ASSERT_TRUE(focus(name));
  typeKey(window, NSTabCharacter);
  EXPECT_EQ([window firstResponder], view);
}

TEST_F(Tabs, ARowWithoutTabsIsDrawnAsABox) {
  [view setHidden:YES];
  NSTabView *const empty = tabs(@[]);
  EXPECT_GT(Picture(empty).count(theme::kBox), 10000);
}
