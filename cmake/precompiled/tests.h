/// The same for the tests, with what most of them include.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <set>

#include "cmake/precompiled/cocoa.h"

#ifdef __OBJC__
#include "tests/support/AgentProcess.h"
#import "tests/support/Events.h"
#endif
