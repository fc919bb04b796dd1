#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A running process whose executable lies in an application bundle.
struct ApplicationProcessEntry {
  pid_t pid;
  std::string bundlePath;
};

/// The bundle that an executable is the main program of: the folder "X.app" around
/// "X.app/program" or "X.app/Contents/MacOS/program". Nothing for any other place, so that a tool
/// inside a bundle does not pass for the application. A path of a replaced executable may end in
/// " (deleted)", as the kernel writes it.
std::optional<std::string> bundleOfExecutable(std::string_view executablePath);

/// All processes of this machine that run as applications, in the order of the process table, as
/// far as this user may see them. Reads the kernel's table anew at each call: one short question a
/// process, about 4 microseconds each. Any thread.
std::vector<ApplicationProcessEntry> runningApplicationProcesses();

/// Whether the process of an entry still runs the application of the entry. One short question.
bool isStillRunning(const ApplicationProcessEntry &entry);

/// Whether a process has ended, also when its parent has not heard of it yet. Two short questions.
/// Any thread.
bool hasExited(pid_t process);

}  // namespace platform
