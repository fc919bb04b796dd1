#pragma once

#include <string>

namespace platform {

/// How a program ends that must not go on. The Mac never starts one then.
enum class LaunchFailure : int {
  /// There is no display, or no temporary folder that could be trusted.
  NoPlaceToRun = 1,
  /// It runs already.
  RunsAlready = 3,
};

/// Ends the program with a line on the standard error output and the failure as the exit code.
[[noreturn]] void endLaunch(const std::string &program, LaunchFailure failure,
                            const std::string &reason);

/// Ends the program where its named connections could lead to another user, or where an instance of
/// this user's is running that shares them: on the Mac launching an application that runs starts no
/// second process. That other one is told nothing and goes on. program: its name for the user and
/// among its connections.
void endUnlessLaunchable(const std::string &program);

/// Why the window server cannot be reached.
std::string displayProblem();

/// When the display goes away while the program runs, it ends with one line about that. To be
/// called once the display is open.
void endWithDisplay(const std::string &program);

}  // namespace platform
