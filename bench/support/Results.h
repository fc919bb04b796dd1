#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

/// The samples of a benchmark program, printed as one JSON object a row. bench/run computes the
/// medians, the ratios and the table.
class Results {
 public:
  /// unit: of both columns of every pair.
  Results(std::string row, std::string unit) : row_(std::move(row)), unit_(std::move(unit)) {}

  /// One measurement of ours and the yardstick's next to it.
  void addPair(double ours, double yardstick) { pairs_.emplace_back(ours, yardstick); }

  /// A measurement of ours that has no yardstick.
  void addValue(double ours) { values_.push_back(ours); }

  /// A further figure, for the reader of the table.
  void addNote(const std::string &name, double value) { notes_.emplace_back(name, value); }

  void print() const;

 private:
  std::string row_;
  std::string unit_;
  std::vector<std::pair<double, double>> pairs_;
  std::vector<double> values_;
  std::vector<std::pair<std::string, double>> notes_;
};

/// The value in the middle; of an even number the higher of both. `values` must not be empty.
double median(std::vector<double> values);

/// How long `work` takes, in milliseconds.
template <class Work>
double millisecondsOf(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  const std::chrono::duration<double, std::milli> elapsed =
      std::chrono::steady_clock::now() - start;
  return elapsed.count();
}

/// Measures both next to each other. Every second round begins with the yardstick, so that the
/// state of the caches favours neither.
template <class Ours, class Yardstick>
void addInterleaved(Results &results, int rounds, Ours ours, Yardstick yardstick) {
  for (int round = 0; round < rounds; ++round) {
    if (round % 2 == 0) {
      const double first = ours();
      results.addPair(first, yardstick());
    } else {
      const double first = yardstick();
      results.addPair(ours(), first);
    }
  }
}
