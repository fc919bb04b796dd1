#include "platform/gnustep/TemporaryFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace platform {
namespace {

constexpr mode_t kOwnersOnly = 0700;
constexpr mode_t kOpenToOthers = 077;

std::string baseFolder() {
  for (const char *variable : {"TEMP", "TMP"}) {
    if (const char *value = std::getenv(variable)) return value;
  }
  return "/tmp";
}

/// Whether the platform takes a folder as it is.
bool isThisUsersAlone(const struct stat &status) {
  const mode_t permissions = status.st_mode & 0777;
  return status.st_uid == geteuid() && (permissions == 0700 || permissions == 0600);
}

std::string problemOfOwnFolder(const std::string &path) {
  const std::string folder = "the temporary folder \"" + path + "\"";
  if (mkdir(path.c_str(), kOwnersOnly) != 0 && errno != EEXIST) {
    return folder + " cannot be made: " + std::strerror(errno);
  }
  struct stat status = {};
  // Not what a link leads to: its owner can let it lead elsewhere at any time.
  if (lstat(path.c_str(), &status) != 0) return folder + " is gone again";
  if (S_ISLNK(status.st_mode)) return folder + " is a symbolic link";
  if (!S_ISDIR(status.st_mode)) return folder + " is not a folder";
  if (status.st_uid != geteuid()) return folder + " belongs to another user";
  if ((status.st_mode & kOpenToOthers) != 0) return folder + " is open to other users";
  return "";
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
