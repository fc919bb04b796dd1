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
/// far as this user may see them. Reads /proc at each call, about 4 microseconds for each process.
/// Any thread.
std::vector<ApplicationProcessEntry> runningApplicationProcesses();

/// Whether the process of an entry still runs the application of the entry. One system call.
bool isStillRunning(const ApplicationProcessEntry &entry);

/// Whether a process has exited, also when its parent has not waited for it yet. Any thread.
bool hasExited(pid_t process);

}  // namespace platform
