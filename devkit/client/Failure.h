#pragma once

#include <string>

namespace devkit {

/// Exit codes of the client, by which a script distinguishes the reasons.
enum class Exit : int {
  Done = 0,
  WrongUsage = 2,
  NotThere = 3,          ///< nothing lies at the path
  Outside = 4,           ///< not inside the synced folder
  NoId = 5,              ///< the engine or the agent gives no id for it
  NotRunning = 6,        ///< the application's name is not registered, or does not reply
  NotOffered = 7,        ///< the application does not know the operation
  ApplicationEnded = 8,  ///< the application ended during the call
  Failed = 9             ///< the operation raised an exception in the application
};

/// Why the client failed: one line for the user.
struct Failure {
  Exit code;
  std::string reason;
};

}  // namespace devkit
