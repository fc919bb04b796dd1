#include "devkit/base/SyncedFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace devkit {
namespace {

/// A descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { reset(-1); }
  Descriptor(const Descriptor &) = delete;
  Descriptor &operator=(const Descriptor &) = delete;

  int get() const { return number_; }
  void reset(int number) {
    if (number_ >= 0) close(number_);
    number_ = number;
  }

 private:
  int number_;
};

/// Splits the next component off the front of path; empty at the end.
std::string_view nextComponent(std::string_view &path) {
  const auto begin = path.find_first_not_of('/');
  if (begin == path.npos) {
    path = {};
    return {};
  }
  const auto end = path.find('/', begin);
  const auto component = path.substr(begin, end == path.npos ? path.npos : end - begin);
  path = end == path.npos ? std::string_view{} : path.substr(end);
  return component;
}

std::chrono::system_clock::time_point timeOf(const timespec &time) {
  using namespace std::chrono;
  return system_clock::time_point(
      duration_cast<system_clock::duration>(seconds(time.tv_sec) + nanoseconds(time.tv_nsec)));
}

}  // namespace

std::optional<std::string> SyncedFolder::relative(std::string_view path) const {
  // The system ignores what follows a NUL, so another item would be found.
  if (path.find('\0') != path.npos) return std::nullopt;
  if (!path.starts_with(root_)) return std::nullopt;
  path.remove_prefix(root_.size());
  if (path.empty() || path.front() != '/') return std::nullopt;

  std::string result;
  for (auto component = nextComponent(path); !component.empty(); component = nextComponent(path)) {
    if (component == ".") continue;
    if (component == "..") return std::nullopt;
    if (!result.empty()) result += '/';
    result += component;
  }
  if (result.empty()) return std::nullopt;
  return result;
}

std::optional<OnDisk> SyncedFolder::look(std::string_view relativePath) const {
  Descriptor folder(open(root_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  std::string component(nextComponent(relativePath));
  while (folder.get() >= 0 && !component.empty()) {
    const std::string next(nextComponent(relativePath));
    if (next.empty()) {
      struct stat found = {};
      if (fstatat(folder.get(), component.c_str(), &found, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
      // A dangling link counts as a file.
      struct stat target = {};
      if (S_ISLNK(found.st_mode) && fstatat(folder.get(), component.c_str(), &target, 0) == 0)
        found = target;
      return OnDisk{S_ISDIR(found.st_mode) ? Kind::Folder : Kind::File, timeOf(found.st_mtim)};
    }
    folder.reset(
        openat(folder.get(), component.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    component = next;
  }
  return std::nullopt;
}

}  // namespace devkit
