#include "tests/support/PlatformServer.h"

#include <signal.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "tests/support/ChildProcess.h"

namespace {

/// Empty when there is no such file, also when its process ends while it is read.
std::string contents(const std::filesystem::path &path) {
  std::ostringstream contents;
  contents << std::ifstream(path).rdbuf();  // istreambuf_iterator would throw
  return contents.str();
}

/// Whether the process belongs to this session: where the session has no process table of its own,
/// those of other sessions can be seen as well.
bool isOfThisSession(const std::filesystem::path &process) {
  const char *const folder = std::getenv("TEMP");
  const std::string variable = std::string("TEMP=") + (folder != nullptr ? folder : "");
  return ('\0' + contents(process / "environ")).find('\0' + variable + '\0') != std::string::npos;
}

pid_t running(const std::string &name) {
  std::error_code error;
  for (const auto &entry : std::filesystem::directory_iterator("/proc", error)) {
    const std::string number = entry.path().filename();
    if (number.find_first_not_of("0123456789") != std::string::npos) continue;
    if (contents(entry.path() / "comm") != name + "\n" || !isOfThisSession(entry.path())) continue;
    // The platform starts its servers through a process of the same name, which ends at once.
    if (contents(entry.path() / "cmdline").find("--daemon") == std::string::npos) continue;
    return std::atoi(number.c_str());
  }
  return 0;
}

/// The letter of the process's state, '-' when there is none.
char stateOf(pid_t pid) {
  const std::string status = contents("/proc/" + std::to_string(pid) + "/stat");
  const auto end = status.rfind(") ");
  return end == std::string::npos ? '-' : status[end + 2];
}

bool isAlive(pid_t pid) {
  const char state = stateOf(pid);
  return state != '-' && state != 'Z';
}

/// Whether any process of this session holds the lock of the names.
bool namesAreLocked() {
  const char *const folder = std::getenv("TEMP");
  return folder != nullptr &&
         std::filesystem::exists(std::filesystem::path(folder) / "NSMessagePort/names/lock");
}

void send(int signal, pid_t pid) {
  if (pid > 0) ::kill(pid, signal);
}

}  // namespace

PlatformServer::PlatformServer(const std::string &name) : name_(name) {
  if (!waitFor([&] { return (pid_ = running(name_)) != 0; })) {
    throw std::runtime_error(name_ + " does not run");
  }
}

PlatformServer::~PlatformServer() {
  resume();
}

void PlatformServer::stop() {
  // Of two that are started at the same time one ends again, and that may be the one that was seen.
  const bool isStopped = waitFor([this] {
    if (!isAlive(pid_)) pid_ = running(name_);
    send(SIGSTOP, pid_);
    return stateOf(pid_) == 'T';
  });
  if (!isStopped) {
    const std::string why =
        pid_ == 0 ? "it has ended" : std::string("its state is ") + stateOf(pid_);
    throw std::runtime_error(name_ + " cannot be stopped: " + why);
  }
}

void PlatformServer::resume() const {
  send(SIGCONT, pid_);
}

void PlatformServer::kill() {
  waitFor([this] {
    stop();
    if (!namesAreLocked()) return true;
    resume();
    return false;
  });
  send(SIGKILL, pid_);
  waitFor([this] { return !isAlive(pid_); });
}
