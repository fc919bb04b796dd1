#pragma once

#include <gtest/gtest.h>

#include "tests/e2e/SharedSystem.h"

/// A test that starts the application by itself: it tests the launch, or needs an environment or an
/// end that other tests cannot share. Members of a fixture are constructed after this.
struct OwnProcesses : testing::Test {
  OwnProcesses() { SharedSystem::end(); }
};
