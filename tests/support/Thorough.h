#pragma once

#include <cstdlib>

/// Whether the tests go through every case, as `./check --all` has them do by the environment
/// variable CHECK_THOROUGHLY. Otherwise a test that repeats the same with many values of the same
/// kind (faults, bytes, windows) takes some of each kind, because a slow check would not be run.
inline bool isThorough() {
  return std::getenv("CHECK_THOROUGHLY") != nullptr;
}

/// How often a test repeats something.
inline int repetitions(int inEachCheck, int inThoroughCheck) {
  return isThorough() ? inThoroughCheck : inEachCheck;
}
