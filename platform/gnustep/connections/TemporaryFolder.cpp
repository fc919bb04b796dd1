#include "platform/gnustep/connections/TemporaryFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace platform {
namespace {

constexpr mode_t kOwnersOnly = 0700;
constexpr mode_t kWritableByOthers = 022;
/// The platform creates the folder first and restricts its permissions then.
constexpr int kLooksWhileItIsMade = 50;
constexpr auto kBetweenLooks = std::chrono::milliseconds(10);

std::string baseFolder() {
  for (const char *variable : {"TEMP", "TMP"}) {
    if (const char *value = std::getenv(variable)) return value;
  }
  return "/tmp";
}

/// Whether the platform uses a folder as it is.
bool isThisUsersAlone(const struct stat &status) {
  const mode_t permissions = status.st_mode & 0777;
  return status.st_uid == geteuid() && (permissions == 0700 || permissions == 0600);
}

std::string problemOfOwnFolder(const std::string &path) {
  const std::string folder = "the temporary folder \"" + path + "\"";
  if (mkdir(path.c_str(), kOwnersOnly) != 0 && errno != EEXIST) {
    return folder + " cannot be made: " + std::strerror(errno);
  }
  for (int i = 0; i < kLooksWhileItIsMade; ++i) {
    struct stat status = {};
    // Not the target of a link, which its owner can change at any time.
    if (lstat(path.c_str(), &status) != 0) return folder + " is gone again";
    if (S_ISLNK(status.st_mode)) return folder + " is a symbolic link";
    if (!S_ISDIR(status.st_mode)) return folder + " is not a folder";
    if (status.st_uid != geteuid()) return folder + " belongs to another user";
    // One that others may only read holds nothing of theirs, and the platform restricts it.
    if ((status.st_mode & kWritableByOthers) == 0) return "";
    std::this_thread::sleep_for(kBetweenLooks);
  }
  return folder + " is open to other users";
}

bool isFolder(const std::string &path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool makeFolder(const std::string &path) {
  return mkdir(path.c_str(), kOwnersOnly) == 0 || (errno == EEXIST && isFolder(path));
}

}  // namespace

TemporaryFolder temporaryFolder() {
  const std::string base = baseFolder();
  struct stat status = {};
  if (stat(base.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
    return {base, "there is no temporary folder \"" + base + "\""};
  }
  if (isThisUsersAlone(status)) return {base, ""};
  const std::string own = base + "/GNUstepSecure" + std::to_string(geteuid());
  return {own, problemOfOwnFolder(own)};
}

bool makePortFolders(const std::string &temporaryFolder) {
  const std::string ports = temporaryFolder + "/NSMessagePort";
  return makeFolder(ports) && makeFolder(ports + "/names") && makeFolder(ports + "/ports");
}

}  // namespace platform
