#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace devkit {

enum class Kind { File, Folder };

/// An item on disk at the time of the call.
struct OnDisk {
  Kind kind;
  std::chrono::system_clock::time_point changed;
};

/// The folder that the service keeps in sync, as a place on disk. Paths are bytes: any script, any
/// length, and also what is not UTF-8.
class SyncedFolder {
 public:
  explicit SyncedFolder(std::string root) : root_(std::move(root)) {}

  const std::string &root() const { return root_; }

  /// The path relative to the synced folder, or nothing when the path does not lie inside it. The
  /// synced folder itself is no item. Compared byte by byte, as the disk does; "." and doubled
  /// slashes are dropped, and ".." is never followed, so that no spelling leads outside.
  std::optional<std::string> relative(std::string_view path) const;

  /// The item at a relative path, or nothing when there is none. Opens folder by folder, so that a
  /// path may have any length and no link to a folder elsewhere is followed: a link inside the
  /// synced folder is an item of its target's kind, what is below the target is none.
  std::optional<OnDisk> look(std::string_view relativePath) const;

 private:
  std::string root_;
};

}  // namespace devkit
