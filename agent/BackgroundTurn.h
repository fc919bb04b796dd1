#pragma once

#include <mutex>

namespace agent {

/// While one of these lives on a background thread, no other background thread that wants one asks
/// the agent: it waits for its turn. GNUstep loses replies when several threads of a process, from
/// three or four on, ask another process at the same time, and the thread whose reply is lost waits
/// for ever. On the main thread it does nothing: that thread never waits for a load.
///
/// To be held for an exchange only, never while the main thread is waited for.
class BackgroundTurn {
 public:
  BackgroundTurn();

 private:
  std::unique_lock<std::mutex> lock_;
};

}  // namespace agent
