#pragma once

#import "agent/RestoringAfterwards.h"

namespace agent {

/// Takes the lock, and gives it back: only through withBackgroundRequestLock. lock answers whether
/// the thread has it.
bool lockBackgroundRequests();
void unlockBackgroundRequests();

/// Runs body under the lock, which a background thread holds from before it asks the agent until it
/// has read what the agent sent. Returns false, without running body, when the thread does not get
/// the lock: the agent then counts as unreachable. Gives the lock back after an exception, too.
///
/// There is no lock on the main thread, and none at all where the platform needs none, as on the
/// Mac, where the threads ask independently of each other.
///
/// GNUstep loses replies where several background threads use their connections at a time, so there
/// only one at a time asks. The others wait as long as a connection attempt of their own would
/// last.
template <class Body>
bool withBackgroundRequestLock(const Body &body) {
  if (!lockBackgroundRequests()) return false;
  restoringAfterwards(body, unlockBackgroundRequests);
  return true;
}

}  // namespace agent
