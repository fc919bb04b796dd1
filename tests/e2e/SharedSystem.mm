#include "tests/e2e/SharedSystem.h"

#include <gtest/gtest.h>

namespace {

/// Ends the running processes after the last test.
struct EndOfTests : testing::Environment {
  void TearDown() override { SharedSystem::end(); }
};

// Owned by the framework.
const testing::Environment *const endOfTests = testing::AddGlobalTestEnvironment(new EndOfTests);

}  // namespace

std::unique_ptr<SharedSystem> SharedSystem::running_;
std::string SharedSystem::purpose_;

void SharedSystem::end() {
  running_.reset();
  purpose_.clear();
}
