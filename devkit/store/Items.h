#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "devkit/base/SyncedFolder.h"
#include "devkit/store/Database.h"

namespace devkit {

/// An item of the service: the server's side of a local path.
struct Item {
  std::string id;
  std::string relativePath;
  Kind kind;

  /// The last component of the path.
  std::string name() const;
};

/// The items of the synced folder. The store holds only the ids; whether an item exists is always
/// looked up on disk.
class Items {
 public:
  Items(Database &database, const SyncedFolder &folder) : database_(database), folder_(folder) {}

  /// The item at a full local path, or nothing when it is not on disk or not inside the synced
  /// folder. One that the store does not have yet gets its id now, as if it had just been synced;
  /// one that has turned from a file into a folder or back is another item with another id.
  std::optional<Item> byPath(std::string_view path);

  /// The item with a server id, or nothing when there is none or it is no longer on disk. The home
  /// folder exists on the service even before it exists on disk.
  std::optional<Item> byId(std::string_view id);

  /// The user's home folder on the service.
  Item home();

 private:
  std::optional<Item> row(std::string_view relativePath);
  void insert(std::string_view relativePath, Kind kind);

  Database &database_;
  const SyncedFolder &folder_;
};

}  // namespace devkit
