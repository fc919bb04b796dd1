#include "bench/day/CountedMemory.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <stdexcept>

using Counter = std::atomic<std::int64_t>;

CountedMemory::CountedMemory(const std::string &folder, pid_t process) {
  const std::string path = folder + "/" + std::to_string(process);
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) throw std::runtime_error("no counter at " + path);
  void *const page = mmap(nullptr, sizeof(Counter), PROT_READ, MAP_SHARED, file, 0);
  close(file);
  if (page == MAP_FAILED) throw std::runtime_error("cannot read the counter at " + path);
  counter_ = page;
}

CountedMemory::~CountedMemory() {
  munmap(const_cast<void *>(counter_), sizeof(Counter));
}

std::int64_t CountedMemory::bytesInUse() const {
  return static_cast<const Counter *>(counter_)->load();
}
