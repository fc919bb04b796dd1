#pragma once

#include <sys/types.h>

#include <string>

/// A server of the platform (gpbs for the pasteboard, gdnc for distributed notifications) of this
/// private session, while it runs.
class PlatformServer {
 public:
  /// name: the program's. Waits until it runs.
  explicit PlatformServer(const std::string &name);

  /// Goes on with it if it is stopped.
  ~PlatformServer();
  PlatformServer(const PlatformServer &) = delete;
  PlatformServer &operator=(const PlatformServer &) = delete;

  pid_t pid() const { return pid_; }

  /// From here on it answers nobody; returns when it stands still.
  void stop() const;
  void resume() const;

  /// Returns when it is gone. Not while it may have the lock of the names, which nobody could take
  /// for the next 15 seconds then.
  void kill() const;

 private:
  pid_t pid_ = 0;  // 0 when it does not run
};
