#pragma once

#include <string>

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

  /// Becomes readable after a change; negative when nothing can be watched. A watch reports once:
  /// make a new one to go on.
  int descriptor() const { return descriptor_; }

  /// Adds the file or folder that is at this path now. No effect where there is none.
  void add(const std::string &path);

  /// Adds the folders above a path, for being moved or removed.
  void addFoldersAbove(const std::string &path);

 private:
  int descriptor_;
};

}  // namespace platform
