/// The same for the tests.
#include <gtest/gtest.h>

#include "cmake/precompiled/cocoa.h"
