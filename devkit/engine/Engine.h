#pragma once

#include <memory>
#include <set>
#include <string>

#include "devkit/store/Store.h"

namespace devkit {

/// What the functions of the library return besides 0. The values are the kit's own: a caller may
/// only pass them on.
enum class EngineCode : int {
  Success = 0,
  NotInitialized = 1,   ///< a query outside BvInitialize ... BvUninitialize
  BadArgument = 2,      ///< a null pointer
  UnknownPath = 3,      ///< not on disk, or not inside the synced folder
  NotAFile = 4,         ///< a file's id was asked of a folder
  NotAFolder = 5,       ///< a folder's id was asked of a file
  StoreUnavailable = 6  ///< the store cannot be opened, read or written
};

/// What BvGetFileSyncState returns.
enum class SyncState : int { Synced = 1, Uploading = 2 };

/// The engine behind the C functions. Not thread-safe, as the library is not.
class Engine {
 public:
  EngineCode initialize();
  EngineCode uninitialize();
  EngineCode syncState(const char *path, int *state);
  EngineCode id(Kind kind, const char *path, char **id);

 private:
  std::unique_ptr<Store> store_;
  /// Every id ever returned. Callers keep the pointers and never free them, so they stay valid for
  /// the life of the process; a set never moves its elements.
  std::set<std::string> ids_;
};

}  // namespace devkit
