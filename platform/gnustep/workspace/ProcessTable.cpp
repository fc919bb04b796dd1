#include "platform/gnustep/workspace/ProcessTable.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <csignal>
#include <cstring>
#include <fstream>
#include <memory>

namespace platform {
namespace {

constexpr std::string_view kDeletedMark = " (deleted)";
constexpr std::string_view kBundleSuffix = ".app";
constexpr std::string_view kProgramFolder = "/Contents/MacOS";

struct CloseDirectory {
  void operator()(DIR *directory) const { closedir(directory); }
};

/// The bundle of the program behind a link of the kernel's process table, relative to a folder.
std::optional<std::string> bundleOfProcess(int folder, const std::string &link) {
  std::array<char, PATH_MAX> target;
  // Fails for kernel threads and for other users' processes: neither is an application of ours.
  const ssize_t length = readlinkat(folder, link.c_str(), target.data(), target.size());
  if (length <= 0) return std::nullopt;
  return bundleOfExecutable({target.data(), static_cast<size_t>(length)});
}

}  // namespace

std::optional<std::string> bundleOfExecutable(std::string_view path) {
  if (path.ends_with(kDeletedMark)) path.remove_suffix(kDeletedMark.size());
  const auto slash = path.rfind('/');
  if (slash == std::string_view::npos) return std::nullopt;
  std::string_view folder = path.substr(0, slash);
  if (folder.ends_with(kProgramFolder)) folder.remove_suffix(kProgramFolder.size());
  // "/.app" has no name and is a hidden folder.
  if (!folder.ends_with(kBundleSuffix) || folder.ends_with("/.app")) return std::nullopt;
  return std::string(folder);
}

bool isStillRunning(const ApplicationProcessEntry &entry) {
  return bundleOfProcess(AT_FDCWD, "/proc/" + std::to_string(entry.pid) + "/exe") ==
         entry.bundlePath;
}

bool hasExited(pid_t process) {
  if (kill(process, 0) != 0 && errno == ESRCH) return true;
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  std::string status;
  std::getline(file, status);
  // The state follows the program's name in brackets, which may contain any character.
  const auto name = status.rfind(')');
  return name != std::string::npos && status.size() > name + 2 &&
         (status[name + 2] == 'Z' || status[name + 2] == 'X');
}

std::vector<ApplicationProcessEntry> runningApplicationProcesses() {
  std::vector<ApplicationProcessEntry> found;
  const std::unique_ptr<DIR, CloseDirectory> table(opendir("/proc"));
  if (!table) return found;
  while (const dirent *entry = readdir(table.get())) {
    const char *const end = entry->d_name + std::strlen(entry->d_name);
    pid_t pid = 0;
    if (std::from_chars(entry->d_name, end, pid).ptr != end) continue;
    auto bundle = bundleOfProcess(dirfd(table.get()), std::string(entry->d_name) + "/exe");
    if (bundle) found.push_back({pid, std::move(*bundle)});
  }
  return found;
}

}  // namespace platform
