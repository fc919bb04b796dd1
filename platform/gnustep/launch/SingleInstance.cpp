#include "platform/gnustep/launch/SingleInstance.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

namespace platform {
namespace {

struct Address {
  struct sockaddr_un value = {};
  socklen_t length = 0;

  /// An abstract address, which the kernel keeps as long as its socket is open.
  explicit Address(const std::string &name) {
    value.sun_family = AF_LOCAL;
    const std::size_t count = std::min(name.size(), sizeof value.sun_path - 1);
    std::copy_n(name.begin(), count, value.sun_path + 1);
    length = static_cast<socklen_t>(offsetof(struct sockaddr_un, sun_path) + 1 + count);
  }

  const struct sockaddr *generic() const {
    return reinterpret_cast<const struct sockaddr *>(&value);
  }
};

/// Not inherited by child processes, which may outlive this one.
int newSocket() {
  return socket(AF_LOCAL, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

/// The process that listens at an address, if it belongs to this user; 0 otherwise.
pid_t ownProcessAt(const Address &address) {
  const int asking = newSocket();
  if (asking < 0) return 0;
  struct ucred other = {};
  socklen_t length = sizeof other;
  const bool isKnown = connect(asking, address.generic(), address.length) == 0 &&
                       getsockopt(asking, SOL_SOCKET, SO_PEERCRED, &other, &length) == 0;
  close(asking);
  return isKnown && other.uid == geteuid() ? other.pid : 0;
}

}  // namespace

pid_t becomeSingleInstance(const std::string &name) {
  const Address address(name);
  const int listening = newSocket();
  if (listening < 0) return 0;
  // Stays open. Connections are never accepted: clients only read the credentials of the listener.
  const bool isBound = bind(listening, address.generic(), address.length) == 0;
  if (isBound && listen(listening, SOMAXCONN) == 0) return 0;
  const int error = errno;
  close(listening);
  return !isBound && error == EADDRINUSE ? ownProcessAt(address) : 0;
}

}  // namespace platform
