#pragma once

#include <string>

namespace platform {

/// Tells when files or folders are removed, moved, replaced, changed or get other permissions. The
/// kernel does the looking, so nothing runs while nothing happens. What comes and goes inside a
/// watched folder tells nothing.
class FileWatch {
 public:
  /// Watches nothing yet. Where the kernel has no more watches to give, it never will.
  FileWatch();
  ~FileWatch();
  FileWatch(const FileWatch &) = delete;
  FileWatch &operator=(const FileWatch &) = delete;

  /// Becomes readable when something has happened; negative when nothing can be watched. A watch
  /// has told all that it can with that: make a new one to go on.
  int descriptor() const { return descriptor_; }

  /// From now on, what is at this path: not what comes there later. Nothing where nothing is.
  void add(const std::string &path);

  /// The folders above a path, as far as moving or removing them takes it away.
  void addFoldersAbove(const std::string &path);

 private:
  int descriptor_;
};

}  // namespace platform
