#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#import "tests/faults/Fault.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Strings.h"
#import "tests/ui/ActivationsInLog.h"
#import "text/LocalizedText.h"

/// A column of the matrix: something that the application does, with each fault. Also captures the
/// log between mark() and logged().
template <class Fixture>
struct FaultTest : Fixture, testing::WithParamInterface<Cell> {
  FaultyAgent agent;
  CapturedLog lines;

  const Fault &fault() const { return this->GetParam().fault; }

  /// The expected result.
  Outcome outcome() const { return outcomeIn(this->GetParam().column, fault()); }

  void begin(NSDictionary *healthyScript = [NSDictionary dictionary]) {
    agent.begin(fault(), healthyScript);
  }

  /// From here on the log counts.
  void mark() {
    marked_ = lines.lines().size();
    activations_.emplace(lines);
  }

  /// The lines since then.
  std::vector<std::string> logged() const {
    std::vector<std::string> all = lines.lines();
    all.erase(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(marked_));
    return all;
  }

  /// What must have been logged since then when only this and the activations are.
  Lines withActivations(const Lines &expected) const { return activations_->with(expected); }

 private:
  std::size_t marked_ = 0;
  std::optional<ActivationsInLog> activations_;
};

/// A text of the string table as it is shown.
inline std::string shown(NSString *key) {
  return text(localizedText(key));
}

/// The name of a cell.
inline std::string nameOfRow(const testing::TestParamInfo<Cell> &info) {
  return info.param.fault.name;
}
