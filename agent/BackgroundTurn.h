#pragma once

#include <mutex>

namespace agent {

/// To be held by a background thread while it asks the agent; does nothing on the main thread.
///
/// Two things go wrong in GNUstep where threads of a process talk to another process, and the reply
/// that is lost by it is waited for in vain:
/// - several background threads, from three or four on, ask at the same time. So each waits for its
///   turn;
/// - a thread ends, and its connection with it, while another one begins to ask. So the turn ends
///   by closing the thread's connections, while the main thread stands still between two events;
///   that takes no longer than closing a file.
///
/// An agent that hangs in one thread's question therefore holds up the threads behind it, which
/// would only wait for the same agent.
///
/// Whatever the agent sent must have been read by the end of the turn.
class BackgroundTurn {
 public:
  BackgroundTurn();
  ~BackgroundTurn();
  BackgroundTurn(const BackgroundTurn &) = delete;
  BackgroundTurn &operator=(const BackgroundTurn &) = delete;

 private:
  std::unique_lock<std::mutex> lock_;
};

}  // namespace agent
