#pragma once

#include <string>
#include <variant>

#include "devkit/base/SyncedFolder.h"
#include "devkit/client/Failure.h"

namespace devkit {

/// An item of the synced folder, found on disk.
struct LocalItem {
  /// As the engine knows it: inside the synced folder, without links or "..".
  std::string path;
  /// The last component.
  std::string name;
  Kind kind;
  /// The folder MyDocs itself, whose id only the agent knows.
  bool isHome;
};

/// Finds what a path given by a person means; relative paths start at the current folder.
std::variant<LocalItem, Failure> findItem(const std::string &path, const SyncedFolder &folder);

/// The server id, asked of the sync engine library. Not for the home folder.
std::variant<std::string, Failure> engineId(const LocalItem &item);

/// A path in a form that can be printed on one line of a terminal.
std::string shown(const std::string &path);

}  // namespace devkit
