#pragma once

#include <string>

/// A synced folder and a data folder for one test, and the environment variables that name them for
/// the kit's programs. The destructor removes both.
class Kit {
 public:
  Kit();
  ~Kit();
  Kit(const Kit &) = delete;
  Kit &operator=(const Kit &) = delete;

  const std::string &syncedFolder() const { return syncedFolder_; }
  const std::string &dataFolder() const { return dataFolder_; }

  /// The full path of something in the synced folder.
  std::string path(const std::string &relativePath) const;

  /// Makes a file or a folder, with the folders above it, and returns its full path. Takes paths of
  /// any length.
  std::string makeFile(const std::string &relativePath) const;
  std::string makeFolder(const std::string &relativePath) const;

  /// Empties both folders. No process may be using them.
  void empty() const;

  /// The content of a file in the data folder; empty when there is none.
  std::string data(const std::string &name) const;

 private:
  std::string folder_;
  std::string syncedFolder_;
  std::string dataFolder_;
};
