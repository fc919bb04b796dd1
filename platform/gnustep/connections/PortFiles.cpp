#include "platform/gnustep/connections/PortFiles.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <iterator>

namespace platform {
namespace {

/// As the platform; the system limits it.
constexpr int kBacklog = 10000;

std::string contentsOf(const PortFiles &files) {
  return files.socket + "\n" + std::to_string(getpid()) + "\n";
}

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor &) = delete;
  Descriptor &operator=(const Descriptor &) = delete;
  int number() const { return number_; }

 private:
  int number_;
};

}  // namespace

FileIdentity identityOf(const std::string &path) {
  struct stat status = {};
  if (lstat(path.c_str(), &status) != 0) return {};
  return {status.st_dev, status.st_ino};
}

bool holdsOwnName(const PortFiles &files) {
  struct stat status = {};
  if (lstat(files.name.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  if (status.st_uid != geteuid() || (status.st_mode & 0777) != 0600) return false;
  std::ifstream file(files.name);
  return std::string(std::istreambuf_iterator<char>(file), {}) == contentsOf(files);
}

bool writeName(const PortFiles &files) {
  // Written under another name and renamed, because other processes remove incomplete files.
  const std::string draft = files.name + "." + std::to_string(getpid());
  const std::string contents = contentsOf(files);
  {
    const Descriptor file(
        open(draft.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (file.number() < 0) return false;
    const auto written = write(file.number(), contents.data(), contents.size());
    if (written != static_cast<ssize_t>(contents.size())) return false;
  }
  return std::rename(draft.c_str(), files.name.c_str()) == 0;
}

bool bindAgain(int listener, const std::string &path) {
  struct sockaddr_un address = {};
  address.sun_family = AF_LOCAL;
  // Truncated as the platform does it, for whoever connects as well.
  std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
  const Descriptor fresh(socket(AF_LOCAL, SOCK_STREAM, 0));
  if (fresh.number() < 0) return false;
  unlink(address.sun_path);
  const auto *name = reinterpret_cast<const struct sockaddr *>(&address);
  if (bind(fresh.number(), name, sizeof address) != 0) return false;
  if (listen(fresh.number(), kBacklog) != 0) return false;
  fcntl(fresh.number(), F_SETFL, fcntl(listener, F_GETFL));
  const int isClosedAtExec = fcntl(listener, F_GETFD) & FD_CLOEXEC;
  return dup3(fresh.number(), listener, isClosedAtExec ? O_CLOEXEC : 0) == listener;
}

}  // namespace platform
