#include "platform/gnustep/connections/FileWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstddef>
#include <cstdint>

namespace platform {
namespace {

/// A file that is still open is not deleted when it is unlinked, but its number of links, one of
/// its attributes, changes.
constexpr std::uint32_t kAnyChange =
    IN_ATTRIB | IN_DELETE_SELF | IN_MODIFY | IN_MOVE_SELF | IN_DONT_FOLLOW;
constexpr std::uint32_t kGone = IN_DELETE_SELF | IN_MOVE_SELF;

/// One report at least.
constexpr std::size_t kReportBytes = sizeof(struct inotify_event) + NAME_MAX + 1;

}  // namespace

FileWatch::FileWatch() : descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

FileWatch::~FileWatch() {
  if (descriptor_ >= 0) close(descriptor_);
}

void FileWatch::clear() {
  for (const int watched : watched_) inotify_rm_watch(descriptor_, watched);
  watched_.clear();
  // Does not block; also reports the end of each watch.
  std::array<char, kReportBytes> reports;
  while (read(descriptor_, reports.data(), reports.size()) > 0) {
  }
}

void FileWatch::add(const std::string &path, unsigned changes) {
  const int watched = inotify_add_watch(descriptor_, path.c_str(), changes);
  if (watched >= 0) watched_.push_back(watched);
}

void FileWatch::add(const std::string &path) {
  add(path, kAnyChange);
}

void FileWatch::addFoldersAbove(const std::string &path) {
  for (auto end = path.rfind('/'); end != std::string::npos && end > 0;
       end = path.rfind('/', end - 1)) {
    add(path.substr(0, end), kGone);
  }
}

}  // namespace platform
