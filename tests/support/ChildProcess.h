#pragma once

#include <sys/types.h>

#include <string>
#include <utility>
#include <vector>

/// A program started by a test, whose output goes to a file. The destructor kills it and waits for
/// its end. Throws std::runtime_error when the program cannot be started.
class ChildProcess {
 public:
  using Environment = std::vector<std::pair<std::string, std::string>>;

  /// arguments: the program's path first. environment: additions to this process's own.
  explicit ChildProcess(const std::vector<std::string> &arguments,
                        const Environment &environment = {});
  ~ChildProcess();
  ChildProcess(const ChildProcess &) = delete;
  ChildProcess &operator=(const ChildProcess &) = delete;

  pid_t pid() const { return pid_; }
  void signal(int number) const;

  /// What the program has written so far to standard output and standard error together.
  std::string output() const;

  /// Whether the output contains `text`; waits for it as waitFor does.
  bool waitForOutput(const std::string &text) const;

  /// How many times the output contains `text`.
  int countInOutput(const std::string &text) const;

  /// Whether the program has ended.
  bool hasEnded();

  /// Waits for the end and returns the exit code (128 + n after signal n).
  int waitForEnd();

 private:
  std::string outputPath_;
  pid_t pid_ = -1;
  int status_ = -1;
};

/// A new empty folder under the private session's temporary folder; the session removes it.
std::string newTemporaryFolder();

/// Polls until `condition` holds, at most for kWaitTimeoutSeconds; returns whether it holds. Polls
/// less often the longer it waits, at last twenty times a second, because polling takes processor
/// time from what it waits for. Does not run the run loop (see Pump.h for that).
template <class Condition>
bool waitFor(Condition condition);

namespace detail {
void pausePolling();
/// The same for a caller who has been waiting for this long.
void pausePollingAfter(double secondsWaited);
double secondsNow();

/// The polling interval of a wait since `start` (secondsNow) while no event arrives: longer, the
/// longer it has taken already, because running a run loop a hundred times a second is work, too.
double secondsUntilNextLook(double start);
}  // namespace detail

/// How long a test waits for a condition; longer in a build that a sanitizer slows down.
constexpr double kWaitTimeoutSeconds = 60 * SANITIZER_SLOWDOWN;

template <class Condition>
bool waitFor(Condition condition) {
  const double start = detail::secondsNow();
  while (!condition()) {
    const double waited = detail::secondsNow() - start;
    if (waited > kWaitTimeoutSeconds) return false;
    detail::pausePollingAfter(waited);
  }
  return true;
}
