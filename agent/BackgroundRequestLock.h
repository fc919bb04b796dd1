#pragma once

namespace agent {

/// Held by a background thread from before it asks the agent until it has read what the agent sent.
/// Does nothing on the main thread, and nothing at all where the platform needs no such lock, as on
/// the Mac, where the threads ask independently of each other.
///
/// GNUstep loses replies where several background threads use their connections at a time, so there
/// only one at a time asks. The others wait as long as a connection attempt of their own would
/// last; for a thread that does not get the lock by then the agent counts as unreachable.
class BackgroundRequestLock {
 public:
  BackgroundRequestLock();
  ~BackgroundRequestLock();
  BackgroundRequestLock(const BackgroundRequestLock &) = delete;
  BackgroundRequestLock &operator=(const BackgroundRequestLock &) = delete;

  /// Whether the thread may ask. If not, the agent counts as unreachable.
  bool isHeld() const { return isHeld_; }

 private:
  bool isNeeded_;
  bool isHeld_;
};

}  // namespace agent
