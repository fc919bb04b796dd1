#pragma once

#include <string>
#include <vector>

namespace platform {

/// Watches files and folders for being removed, moved, replaced, changed or given other
/// permissions. The kernel notifies, nothing is polled. Entries that are added to or removed from a
/// watched folder are not reported.
class FileWatch {
 public:
  /// Watches nothing yet, and never will where the kernel's limit of watches is reached.
  FileWatch();
  ~FileWatch();
  FileWatch(const FileWatch &) = delete;
  FileWatch &operator=(const FileWatch &) = delete;

  /// Becomes readable after a change and stays so until `clear`; negative when nothing can be
  /// watched.
  int descriptor() const { return descriptor_; }

  /// Ends the watching of everything, and forgets what has changed. To go on after a change clear
  /// the watch instead of making a new one: the kernel needs 15 ms to close one.
  void clear();

  /// Adds the file or folder that is at this path now. No effect where there is none.
  void add(const std::string &path);

  /// Adds the folders above a path, for being moved or removed.
  void addFoldersAbove(const std::string &path);

 private:
  void add(const std::string &path, unsigned changes);

  int descriptor_;
  std::vector<int> watched_;
};

}  // namespace platform
