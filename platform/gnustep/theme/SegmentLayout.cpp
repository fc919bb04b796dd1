#include "platform/gnustep/theme/SegmentLayout.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace theme {

namespace {

constexpr double kSegmentPadding = 14;

double sum(const std::vector<double> &values) {
  return std::accumulate(values.begin(), values.end(), 0.0);
}

/// Reduces the widest values so that the sum is at most `available`.
void cutWidest(std::vector<double> &widths, double available) {
  std::vector<double> sorted = widths;
  std::sort(sorted.begin(), sorted.end());
  double left = available;
  double limit = available;
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    limit = left / static_cast<double>(sorted.size() - i);
    if (sorted[i] > limit) break;
    left -= sorted[i];
  }
  for (double &width : widths) width = std::min(width, limit);
}

}  // namespace

std::vector<Segment> segmentsForLabels(const std::vector<double> &labelWidths, double available) {
  if (labelWidths.empty()) return {};
  const double room = std::max(0.0, available);
  const auto count = static_cast<double>(labelWidths.size());
  const double spare = (room - sum(labelWidths)) / (2 * count);
  const double padding = std::clamp(spare, kSegmentPaddingMinimum, kSegmentPadding);
  std::vector<double> widths;
  for (const double label : labelWidths) widths.push_back(std::ceil(label) + 2 * padding);
  if (sum(widths) > room) cutWidest(widths, room);

  std::vector<Segment> segments;
  double x = std::max(0.0, std::floor((room - sum(widths)) / 2));
  for (const double width : widths) {
    // Each end is rounded down, so that the last one stays inside.
    const double end = std::floor(x + width);
    segments.push_back({std::floor(x), end - std::floor(x)});
    x += width;
  }
  return segments;
}

}  // namespace theme
