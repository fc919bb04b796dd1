#include "platform/gnustep/connections/FileWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <cstdint>

namespace platform {
namespace {

/// A file that is still open is not deleted when it is unlinked, but its number of links, one of
/// its attributes, changes.
constexpr std::uint32_t kAnyChange =
    IN_ATTRIB | IN_DELETE_SELF | IN_MODIFY | IN_MOVE_SELF | IN_DONT_FOLLOW;
constexpr std::uint32_t kGone = IN_DELETE_SELF | IN_MOVE_SELF;

}  // namespace

FileWatch::FileWatch() : descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

FileWatch::~FileWatch() {
  if (descriptor_ >= 0) close(descriptor_);
}

void FileWatch::add(const std::string &path) {
  inotify_add_watch(descriptor_, path.c_str(), kAnyChange);
}

void FileWatch::addFoldersAbove(const std::string &path) {
  for (auto end = path.rfind('/'); end != std::string::npos && end > 0;
       end = path.rfind('/', end - 1)) {
    inotify_add_watch(descriptor_, path.substr(0, end).c_str(), kGone);
  }
}

}  // namespace platform
