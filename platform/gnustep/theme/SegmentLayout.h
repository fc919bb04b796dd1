#pragma once

#include <vector>

/// A row of segments, as the tabs of a tab view.
namespace theme {

struct Segment {
  double x;
  double width;
};

/// Places a segment for each label (its width in points), side by side in the middle of
/// `available` points. Where there is too little room the space round the labels shrinks first,
/// then the longest segments; they never reach beyond the room.
std::vector<Segment> segmentsForLabels(const std::vector<double> &labelWidths, double available);

/// The least space at each side of a label.
constexpr double kSegmentPaddingMinimum = 6;

}  // namespace theme
