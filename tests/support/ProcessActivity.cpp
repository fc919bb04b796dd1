#include "tests/support/ProcessActivity.h"

#include <unistd.h>

#include <chrono>
#include <deque>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/ChildProcess.h"

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::milliseconds kBetweenLooks{100};

/// The threads of a process, as folders, without that of the thread sanitizer, which has this name
/// (tools/sanitizers/defaults.cpp). None when the process has ended.
std::vector<fs::path> threadFoldersOf(pid_t process) {
  std::vector<fs::path> folders;
  std::error_code gone;
  for (const auto &thread :
       fs::directory_iterator(fs::path("/proc") / std::to_string(process) / "task", gone)) {
    std::string name;
    std::getline(std::ifstream(thread.path() / "comm"), name);
    if (name != "sanitizer") folders.push_back(thread.path());
  }
  return folders;
}

/// -1 for a thread that has just ended.
long voluntarySwitches(const fs::path &thread) {
  const std::string key = "voluntary_ctxt_switches:";
  std::ifstream file(thread / "status");
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(key)) return std::stol(line.substr(key.size()));
  }
  return -1;
}

/// In user and in system mode.
double processorMilliseconds(const fs::path &process) {
  std::ifstream file(process / "stat");
  std::string all;
  if (!std::getline(file, all)) throw std::runtime_error("cannot read " + process.string());
  // After the name, which is in parentheses and may contain spaces.
  std::istringstream fields(all.substr(all.rfind(')') + 1));
  constexpr int kFieldsBefore = 11;
  std::string skipped;
  for (int i = 0; i < kFieldsBefore; ++i) fields >> skipped;
  double user = 0;
  double system = 0;
  fields >> user >> system;
  return (user + system) * 1000 / static_cast<double>(sysconf(_SC_CLK_TCK));
}

/// The last second of a running process.
class LastSecond {
 public:
  explicit LastSecond(pid_t process) : process_(process) {}

  /// To be called repeatedly. Returns whether a whole second has passed.
  bool look() {
    const double now = detail::secondsNow();
    looks_.emplace_back(now, ProcessActivity::of(process_));
    while (looks_.size() > 2 && looks_[1].first <= now - 1) looks_.pop_front();
    return looks_.front().first <= now - 1;
  }

  /// The activity of a little more than a second.
  SecondOfActivity activity() const {
    const ProcessActivity &first = looks_.front().second;
    const ProcessActivity &last = looks_.back().second;
    return {.wakeUps = last.wakeUpsSince(first),
            .processorMilliseconds = last.processorMillisecondsSince(first)};
  }

 private:
  const pid_t process_;
  std::deque<std::pair<double, ProcessActivity>> looks_;
};

}  // namespace

ProcessActivity ProcessActivity::of(pid_t process) {
  const fs::path folder = fs::path("/proc") / std::to_string(process);
  ProcessActivity activity;
  activity.processorMilliseconds_ = processorMilliseconds(folder);
  for (const fs::path &thread : threadFoldersOf(process)) {
    const long switches = voluntarySwitches(thread);
    if (switches >= 0) activity.switchesOfThreads_[std::stoi(thread.filename())] = switches;
  }
  return activity;
}

long ProcessActivity::wakeUpsSince(const ProcessActivity &earlier) const {
  long wakeUps = 0;
  for (const auto &[thread, switches] : switchesOfThreads_) {
    const auto before = earlier.switchesOfThreads_.find(thread);
    wakeUps += switches - (before == earlier.switchesOfThreads_.end() ? 0 : before->second);
  }
  return wakeUps;
}

double ProcessActivity::processorMillisecondsSince(const ProcessActivity &earlier) const {
  return processorMilliseconds_ - earlier.processorMilliseconds_;
}

std::size_t threadsOf(pid_t process) {
  return threadFoldersOf(process).size();
}

SecondOfActivity quietestSecond(pid_t process, double seconds,
                                const std::function<void()> &meanwhile) {
  LastSecond last(process);
  SecondOfActivity quietest;
  bool isFirst = true;
  for (const double end = detail::secondsNow() + seconds; detail::secondsNow() < end;) {
    if (last.look()) {
      const SecondOfActivity activity = last.activity();
      if (isFirst || activity.wakeUps < quietest.wakeUps) quietest = activity;
      isFirst = false;
    }
    meanwhile();
    std::this_thread::sleep_for(kBetweenLooks);
  }
  return quietest;
}

bool waitUntilIdle(pid_t process) {
  LastSecond last(process);
  return waitFor([&] {
    if (!last.look()) return false;
    const SecondOfActivity activity = last.activity();
    return activity.wakeUps == 0 && activity.processorMilliseconds == 0;
  });
}
