#pragma once

#include <string>

namespace platform {

/// The exit codes of a program that must not run. The Mac does not launch it in these cases.
enum class LaunchFailure : int {
  /// There is no display, or no temporary folder that could be trusted.
  NoPlaceToRun = 1,
  /// An instance is running.
  RunsAlready = 3,
};

/// Ends the program with a line on the standard error output and the failure as the exit code.
[[noreturn]] void endLaunch(const std::string &program, LaunchFailure failure,
                            const std::string &reason);

/// Ends the program where its named connections could lead to processes of another user, or where
/// this user is running an instance that has the same names: on the Mac launching an application
/// that is running starts no second process. The running instance is not notified. program: its
/// name, for the message and its connections.
void endUnlessLaunchable(const std::string &program);

/// Why the window server cannot be reached.
std::string displayProblem();

/// Makes the program end with one line when the connection to the display is lost. To be called
/// once the display is open.
void endWithDisplay(const std::string &program);

}  // namespace platform
