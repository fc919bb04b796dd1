#pragma once

#include <sys/types.h>

#include <string>

namespace platform {

/// The two files by which other processes reach a port of this one: the name's, which holds the
/// socket's path and the number of the process, and the socket.
struct PortFiles {
  std::string name;
  std::string socket;
};

/// Which file a path leads to.
struct FileIdentity {
  dev_t device = 0;
  ino_t number = 0;
  bool operator==(const FileIdentity &) const = default;
};

/// Of whatever is at the path, not of what a link leads to; all 0 when there is nothing.
FileIdentity identityOf(const std::string &path);

/// Whether others who look for the name find this process's socket in it. The platform looks at the
/// file's owner and permissions, too.
bool holdsOwnName(const PortFiles &files);

/// Writes the name, in place of whatever is at its path. Answers whether it could. To be called
/// with the lock of the names.
bool writeName(const PortFiles &files);

/// Gives a listening socket whose file is gone a new one at its path, in place of whatever is there
/// now: the descriptor then listens there. Connections that have been made go on; those that nobody
/// has accepted yet are lost. Answers whether it could.
bool bindAgain(int listener, const std::string &path);

}  // namespace platform
