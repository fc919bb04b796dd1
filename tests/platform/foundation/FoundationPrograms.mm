#include <gtest/gtest.h>

#include "tests/support/ChildProcess.h"

namespace {

/// The libraries that a program is linked with, and theirs, which the loader lists instead of
/// running it.
std::string librariesOf(const std::string &program) {
  ChildProcess listing({program}, {{"LD_TRACE_LOADED_OBJECTS", "1"}});
  EXPECT_EQ(listing.waitForEnd(), 0);
  return listing.output();
}

class FoundationPrograms : public testing::TestWithParam<const char *> {};

}  // namespace

// These are started hundreds of times, by the file managers' entries and by tests. AppKit would
// more than double the time of a start.
TEST_P(FoundationPrograms, LoadFoundationAndNoAppKit) {
  const std::string libraries = librariesOf(GetParam());
  EXPECT_NE(libraries.find("libgnustep-base"), std::string::npos) << libraries;
  EXPECT_EQ(libraries.find("libgnustep-gui"), std::string::npos) << libraries;
  EXPECT_EQ(libraries.find("libX11"), std::string::npos) << libraries;
}

INSTANTIATE_TEST_SUITE_P(, FoundationPrograms,
                         testing::Values(CONTEXTMENU, DEVELOPMENT_AGENT, DESKTOP_DRIVER,
                                         PLUGIN_CALL, SCRIPTED_AGENT, SCRIPTED_FILE_MANAGER,
                                         "/proc/self/exe"));
