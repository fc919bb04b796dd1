#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

/// The bytes that a program has allocated and not freed, as the library counting_allocator counts
/// them from within it.
///
/// The resident pages depend on more than on what a program keeps: on how much of its libraries the
/// system has read, and on how much freed memory the allocator keeps, which is more when several
/// threads allocate at once. The bytes in use do not.
class CountedMemory {
 public:
  /// The name of the environment variable that tells the library the folder, which must exist. The
  /// library counts for any program that it is loaded into, and that has the variable.
  static constexpr const char *kFolderVariable = "COUNTED_MEMORY";

  /// Throws std::runtime_error when the process does not count there.
  CountedMemory(const std::string &folder, pid_t process);
  ~CountedMemory();
  CountedMemory(const CountedMemory &) = delete;
  CountedMemory &operator=(const CountedMemory &) = delete;

  /// At this moment, or when the process ended.
  std::int64_t bytesInUse() const;

 private:
  const void *counter_;
};
