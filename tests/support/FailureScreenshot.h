#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/support/ChildProcess.h"

/// Takes a screenshot at the first failure of a test, in the folder of that test below the one that
/// the environment variable FAILED_TESTS names (tools/run-tests sets it); without that it does
/// nothing.
class FailureScreenshot : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo &test) override {
    name_ = std::string(test.test_suite_name()) + "." + test.name();
    std::replace(name_.begin(), name_.end(), '/', '-');
    isTaken_ = false;
  }

  void OnTestEnd(const testing::TestInfo & /*test*/) override { name_.clear(); }

  void OnTestPartResult(const testing::TestPartResult &result) override {
    const char *const folders = std::getenv("FAILED_TESTS");
    if (!result.failed() || isTaken_ || folders == nullptr || name_.empty()) return;
    isTaken_ = true;
    const std::filesystem::path folder = std::filesystem::path(folders) / name_;
    std::filesystem::create_directories(folder);
    ChildProcess({"/usr/bin/import", "-silent", "-window", "root", folder / "screen.png"})
        .waitForEnd();
  }

  /// Of the running test. Kept here, because the framework holds its lock while it reports a
  /// failure.
  std::string name_;
  bool isTaken_ = false;
};
