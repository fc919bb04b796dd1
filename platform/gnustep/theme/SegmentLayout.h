#pragma once

#include <vector>

/// The layout of a row of segments, for the tabs of a tab view.
namespace theme {

struct Segment {
  double x;
  double width;
};

/// Places a segment for each label (its width in points), side by side in the middle of `available`
/// points. Where there is too little space, first the padding of the labels shrinks, then the
/// longest segments; they never exceed it.
std::vector<Segment> segmentsForLabels(const std::vector<double> &labelWidths, double available);

/// The least space at each side of a label.
constexpr double kSegmentPaddingMinimum = 6;

}  // namespace theme
