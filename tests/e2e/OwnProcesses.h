#pragma once

#include <gtest/gtest.h>

#include "tests/e2e/SharedSystem.h"

/// A test that starts the application by itself: what it is about is the launch, or an environment
/// or an end that no other test could do with. Members of a fixture are made after this.
struct OwnProcesses : testing::Test {
  OwnProcesses() { SharedSystem::end(); }
};
