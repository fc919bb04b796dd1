#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/support/ChildProcess.h"

/// Keeps what is on the screen when a test first finds something that is not as expected, in the
/// folder of that test below the one that the environment variable FAILED_TESTS names
/// (tools/run-tests sets it); without that, nothing.
class PictureOfFailure : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo & /*info*/) override { isTaken_ = false; }

  void OnTestPartResult(const testing::TestPartResult &result) override {
    const char *const folders = std::getenv("FAILED_TESTS");
    const testing::TestInfo *const test = testing::UnitTest::GetInstance()->current_test_info();
    if (!result.failed() || isTaken_ || folders == nullptr || test == nullptr) return;
    isTaken_ = true;
    std::string name = std::string(test->test_suite_name()) + "." + test->name();
    std::replace(name.begin(), name.end(), '/', '-');
    const std::filesystem::path folder = std::filesystem::path(folders) / name;
    std::filesystem::create_directories(folder);
    ChildProcess({"/usr/bin/import", "-silent", "-window", "root", folder / "screen.png"})
        .waitForEnd();
  }

  bool isTaken_ = false;
};
