#include "tests/support/ChildProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

namespace {

std::vector<std::string> environmentWith(const ChildProcess::Environment &additions) {
  std::vector<std::string> all;
  for (char **variable = environ; *variable != nullptr; ++variable) {
    const std::string entry = *variable;
    bool replaced = false;
    for (const auto &[name, value] : additions) replaced |= entry.starts_with(name + "=");
    if (!replaced) all.push_back(entry);
  }
  for (const auto &[name, value] : additions) all.push_back(name + "=" + value);
  return all;
}

/// For a program whose exit code other code has collected: one that no test expects.
constexpr int kUnknownStatus = 255 << 8;

std::vector<char *> pointers(std::vector<std::string> &strings) {
  std::vector<char *> result;
  for (auto &string : strings) result.push_back(string.data());
  result.push_back(nullptr);
  return result;
}

}  // namespace

std::string newTemporaryFolder() {
  const char *const root = std::getenv("TMPDIR");
  std::string path = std::string(root != nullptr ? root : "/tmp") + "/test-XXXXXX";
  if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("no temporary folder " + path);
  return path;
}

ChildProcess::ChildProcess(const std::vector<std::string> &arguments,
                           const Environment &environment)
    : outputPath_(newTemporaryFolder() + "/output") {
  auto argumentStrings = arguments;
  auto variables = environmentWith(environment);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, outputPath_.c_str(),
                                   O_WRONLY | O_CREAT | O_APPEND, 0600);
  posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
  const int error = posix_spawn(&pid_, argumentStrings.front().c_str(), &actions, nullptr,
                                pointers(argumentStrings).data(), pointers(variables).data());
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("cannot start " + arguments.front());
}

ChildProcess::~ChildProcess() {
  if (hasEnded()) return;
  signal(SIGKILL);
  waitForEnd();
}

void ChildProcess::signal(int number) const {
  kill(pid_, number);
}

std::string ChildProcess::output() const {
  std::ifstream file(outputPath_);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool ChildProcess::waitForOutput(const std::string &text) const {
  return waitFor([&] { return output().find(text) != std::string::npos; });
}

int ChildProcess::countInOutput(const std::string &text) const {
  const std::string all = output();
  int count = 0;
  for (auto at = all.find(text); at != std::string::npos; at = all.find(text, at + 1)) ++count;
  return count;
}

bool ChildProcess::hasEnded() {
  if (status_ != -1) return true;
  int status = 0;
  const pid_t ended = waitpid(pid_, &status, WNOHANG);
  if (ended == pid_) status_ = status;
  // The platform collects all ended children of the process when one of its own has ended, so it
  // may have collected this one.
  if (ended == -1 && errno == ECHILD) status_ = kUnknownStatus;
  return status_ != -1;
}

int ChildProcess::waitForEnd() {
  // A signal may interrupt this, of another child's end for one.
  while (status_ == -1 && waitpid(pid_, &status_, 0) == -1) {
    if (errno == ECHILD) status_ = kUnknownStatus;
  }
  return WIFSIGNALED(status_) ? 128 + WTERMSIG(status_) : WEXITSTATUS(status_);
}

namespace detail {

void pausePolling() {
  pausePollingAfter(0);
}

void pausePollingAfter(double secondsWaited) {
  constexpr double kShortestSeconds = 0.005;
  constexpr double kLongestSeconds = 0.05;
  /// The delay, as a share of the wait, with which a long wait may end.
  constexpr double kShareOfWait = 0.05;
  const double pause = std::clamp(secondsWaited * kShareOfWait, kShortestSeconds, kLongestSeconds);
  std::this_thread::sleep_for(std::chrono::duration<double>(pause));
}

double secondsNow() {
  using namespace std::chrono;
  return duration<double>(steady_clock::now().time_since_epoch()).count();
}

double secondsUntilNextLook(double start) {
  constexpr double kLeast = 0.01;
  constexpr double kMost = 0.1;
  return std::clamp((secondsNow() - start) / 50, kLeast, kMost);
}

}  // namespace detail
