#pragma once

#include <sys/types.h>

#include <string>

/// A server of the platform (gpbs for the pasteboard, gdnc for distributed notifications) of this
/// private session, while it runs.
class PlatformServer {
 public:
  /// name: the program's. Waits until it runs; throws std::runtime_error when it does not.
  explicit PlatformServer(const std::string &name);

  /// Continues it if it is stopped.
  ~PlatformServer();
  PlatformServer(const PlatformServer &) = delete;
  PlatformServer &operator=(const PlatformServer &) = delete;

  pid_t pid() const { return pid_; }

  /// Stops it, so that it serves no requests; returns when it is stopped. Throws
  /// std::runtime_error when it cannot be.
  void stop();
  void resume() const;

  /// Kills it and returns when it has ended. Not while it may hold the lock of the names, which no
  /// process could take for the next 15 seconds then.
  void kill();

 private:
  std::string name_;
  pid_t pid_ = 0;
};
