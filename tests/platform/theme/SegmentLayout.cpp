#include "platform/gnustep/theme/SegmentLayout.h"

#include <gtest/gtest.h>

using theme::segmentsForLabels;

TEST(SegmentLayout, NoLabelsNeedNoSegments) {
  EXPECT_TRUE(segmentsForLabels({}, 100).empty());
}

TEST(SegmentLayout, TheRowStandsInTheMiddle) {
  const auto segments = segmentsForLabels({60, 40}, 400);
  const double left = segments.front().x;
  const double right = 400 - segments.back().x - segments.back().width;
  EXPECT_NEAR(left, right, 1);
  EXPECT_GT(left, 0);
}

TEST(SegmentLayout, SegmentsLieSideBySide) {
  const auto segments = segmentsForLabels({60, 40, 50}, 400);
  EXPECT_EQ(segments[0].x + segments[0].width, segments[1].x);
  EXPECT_EQ(segments[1].x + segments[1].width, segments[2].x);
}

TEST(SegmentLayout, LabelsThatFitAreNotCut) {
  const auto segments = segmentsForLabels({60, 40}, 130);
  EXPECT_GE(segments[0].width, 60 + 2 * theme::kSegmentPaddingMinimum);
  EXPECT_GE(segments[1].width, 40 + 2 * theme::kSegmentPaddingMinimum);
}

TEST(SegmentLayout, ARowThatIsTooLongStaysInsideItsRoom) {
  const auto segments = segmentsForLabels({300, 200, 20}, 250);
  EXPECT_GE(segments.front().x, 0);
  EXPECT_LE(segments.back().x + segments.back().width, 250);
}

TEST(SegmentLayout, ShortLabelsKeepTheirRoomWhenLongOnesAreCut) {
  const auto segments = segmentsForLabels({300, 200, 20}, 250);
  EXPECT_GE(segments[2].width, 20);
  EXPECT_NEAR(segments[0].width, segments[1].width, 1);
}

TEST(SegmentLayout, WithoutAnyRoomNothingHasAWidth) {
  for (const auto &segment : segmentsForLabels({30, 20}, -5)) EXPECT_EQ(segment.width, 0);
}
