#pragma once

#include <cstdlib>

/// Whether the tests run with the Mac's rules for the lifetimes of objects.
inline bool keepMacRules() {
  return std::getenv("TEST_MAC_RULES") != nullptr;
}

/// Makes the platform keep these rules, where the environment has TEST_MAC_RULES: the tests of
/// windows that close run once more like that. To be called once, before the tests run. Main
/// thread.
///
/// - The notification centre retains the observers of the application while it posts, as since
///   macOS 10.11. (Not the platform's own, some of which post from their dealloc.)
/// - An object of the application that is deallocated while it still observes fails the test.
/// Before
///   macOS 10.11 the next notification would be sent to it.
/// - What is autoreleased while the run loop runs, or while an interface file is loaded, lives
/// until
///   the end of the event: the platform drains pools of its own earlier.
void keepMacRulesIfAsked();
