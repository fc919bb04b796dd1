#pragma once

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <map>

/// What a process has done since its start.
class ProcessActivity {
 public:
  /// Throws std::runtime_error when the process has ended.
  static ProcessActivity of(pid_t process);

  /// How often its threads were woken since `earlier`, those that have ended in between left out:
  /// each time that a thread goes to sleep again is a voluntary context switch.
  long wakeUpsSince(const ProcessActivity &earlier) const;

  /// The processor time that it used since `earlier`, to the 10 ms that the system counts in.
  double processorMillisecondsSince(const ProcessActivity &earlier) const;

 private:
  std::map<int, long> switchesOfThreads_;
  double processorMilliseconds_ = 0;
};

/// How many threads the process has; 0 when it has ended.
std::size_t threadsOf(pid_t process);

/// What a process did in a second.
struct SecondOfActivity {
  long wakeUps = 0;
  double processorMilliseconds = 0;
};

/// Watches the process for this long and returns the second in which it was woken least. meanwhile:
/// called ten times a second.
SecondOfActivity quietestSecond(pid_t process, double seconds,
                                const std::function<void()> &meanwhile);

/// Watches the process until it has done nothing at all for a second, as waitFor does; returns
/// whether that happened.
bool waitUntilIdle(pid_t process);
