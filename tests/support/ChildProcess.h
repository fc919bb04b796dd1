#pragma once

#include <sys/types.h>

#include <string>
#include <utility>
#include <vector>

/// A program started by a test, whose output goes to a file. It is killed and waited for when this
/// goes away. Throws std::runtime_error when the program cannot be started.
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

  /// Whether the output has come to hold `text`; waits for it as waitFor does.
  bool waitForOutput(const std::string &text) const;

  /// How many times `text` stands in the output.
  int countInOutput(const std::string &text) const;

  /// Whether the program has ended.
  bool hasEnded();

  /// Waits for the end and answers the exit code (128 + n after signal n).
  int waitForEnd();

 private:
  std::string outputPath_;
  pid_t pid_ = -1;
  int status_ = -1;
};

/// A new empty folder under the private session's temporary folder; the session removes it.
std::string newTemporaryFolder();

/// Polls until `condition` holds, at most for kWaitTimeoutSeconds; answers whether it came to hold.
/// Looks less often the longer it waits, at last twenty times a second: looking takes processor
/// time from what is waited for. Does not run the run loop (see Pump.h for that).
template <class Condition>
bool waitFor(Condition condition);

namespace detail {
void pausePolling();
/// The same for somebody who has been waiting for this long.
void pausePollingAfter(double secondsWaited);
double secondsNow();

/// How long whoever waits since `start` (secondsNow) may leave the condition alone while nothing
/// happens: longer, the longer it has taken already, because a run loop that is asked a hundred
/// times a second is work too.
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
