#pragma once

#include <string>

namespace devkit {

/// How the client ends. A script tells the reasons apart by these.
enum class Exit : int {
  Done = 0,
  WrongUsage = 2,
  NotThere = 3,          ///< nothing lies at the path
  Outside = 4,           ///< not inside the synced folder
  NoId = 5,              ///< the engine or the agent gives no id for it
  NotRunning = 6,        ///< nobody has the application's name, or nobody answers on it
  NotOffered = 7,        ///< the application does not know the operation
  ApplicationEnded = 8,  ///< the application ended during the call
  Failed = 9             ///< the operation raised an exception in the application
};

/// Why the client cannot do what it was asked for: one line for the user.
struct Failure {
  Exit code;
  std::string reason;
};

}  // namespace devkit
