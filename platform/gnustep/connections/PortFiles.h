#pragma once

#include <sys/types.h>

#include <string>

namespace platform {

/// The two files by which other processes reach a port of this one: the name, which holds the path
/// of the socket and the process identifier, and the socket.
struct PortFiles {
  std::string name;
  std::string socket;
};

/// Identifies a file, whatever its path.
struct FileIdentity {
  dev_t device = 0;
  ino_t number = 0;
  bool operator==(const FileIdentity &) const = default;
};

/// Of the file at the path, not of the target of a link; all 0 when there is none.
FileIdentity identityOf(const std::string &path);

/// Whether the file holds this process's socket, with the owner and permissions that the platform
/// checks at a look-up.
bool holdsOwnName(const PortFiles &files);

/// Writes the name, replacing whatever is at its path. Answers whether it could. Call with the lock
/// for names held.
bool writeName(const PortFiles &files);

/// Makes the descriptor of a listening socket whose file was removed listen at the same path again,
/// replacing whatever is there. Accepted connections go on, others are lost. Answers whether it
/// could.
bool bindAgain(int listener, const std::string &path);

}  // namespace platform
