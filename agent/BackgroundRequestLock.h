#pragma once

namespace agent {

/// To be held by a background thread while it asks the agent. Does nothing on the main thread, and
/// nothing at all where the platform needs no turns, as on the Mac: there the threads ask
/// independently of each other, and no lock is taken.
///
/// Where the platform needs them, only one background thread at a time asks. An agent that hangs in
/// one thread's question holds up the threads behind it as long as a connection attempt of their
/// own would last, and is unreachable for them then.
///
/// Whatever the agent sent must have been read by the end of the turn.
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
