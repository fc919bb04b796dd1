#include "bench/support/Results.h"

#include <algorithm>
#include <cstdio>

void Results::print() const {
  std::printf(R"({"row": "%s", "unit": "%s", "pairs": [)", row_.c_str(), unit_.c_str());
  const char *separator = "";
  for (const auto &[ours, yardstick] : pairs_) {
    std::printf("%s[%.6f, %.6f]", separator, ours, yardstick);
    separator = ", ";
  }
  std::printf(R"(], "values": [)");
  separator = "";
  for (const double value : values_) {
    std::printf("%s%.6f", separator, value);
    separator = ", ";
  }
  std::printf(R"(], "notes": {)");
  separator = "";
  for (const auto &[name, value] : notes_) {
    std::printf(R"(%s"%s": %.6f)", separator, name.c_str(), value);
    separator = ", ";
  }
  std::printf("}}\n");
  std::fflush(stdout);
}

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}
