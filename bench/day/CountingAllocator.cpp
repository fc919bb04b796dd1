// Loaded in front of the C library, this counts the bytes that a program has allocated and not
// freed, in a file that others read (CountedMemory.h): asking the program would wake it up.
#include <fcntl.h>
#include <malloc.h>
#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "bench/day/CountedMemory.h"

// The C library's own.
extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);
void *__libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void *memory);
}

namespace {

using Counter = std::atomic<std::int64_t>;
static_assert(Counter::is_always_lock_free, "it is shared by two processes");

/// Until there is a file, and of a process that has been forked.
Counter ownCounter;
std::atomic<Counter *> counter = &ownCounter;

void count(std::int64_t bytes) {
  counter.load(std::memory_order_relaxed)->fetch_add(bytes, std::memory_order_relaxed);
}

std::int64_t sizeOf(void *memory) {
  return static_cast<std::int64_t>(malloc_usable_size(memory));
}

void *counted(void *memory) {
  if (memory != nullptr) count(sizeOf(memory));
  return memory;
}

/// A forked process's allocations do not count for its parent.
void leaveCounterToParent() {
  counter = &ownCounter;
}

__attribute__((constructor)) void countInFile() {
  const char *const folder = std::getenv(CountedMemory::kFolderVariable);
  if (folder == nullptr) return;
  char path[1024];
  const int length = std::snprintf(path, sizeof path, "%s/%d", folder, getpid());
  if (length < 0 || static_cast<std::size_t>(length) >= sizeof path) return;
  const int file = open(path, O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  if (file < 0) return;
  void *page = MAP_FAILED;
  if (ftruncate(file, sizeof(Counter)) == 0) {
    page = mmap(nullptr, sizeof(Counter), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  }
  close(file);
  if (page == MAP_FAILED) return;
  auto *const shared = static_cast<Counter *>(page);
  // There is only one thread yet.
  shared->store(ownCounter.load());
  counter = shared;
  pthread_atfork(nullptr, nullptr, leaveCounterToParent);
}

}  // namespace

extern "C" {

void *malloc(std::size_t size) {
  return counted(__libc_malloc(size));
}

void *calloc(std::size_t number, std::size_t size) {
  return counted(__libc_calloc(number, size));
}

void *realloc(void *memory, std::size_t size) {
  const std::int64_t before = memory == nullptr ? 0 : sizeOf(memory);
  void *const moved = __libc_realloc(memory, size);
  // A failed realloc leaves the memory as it is; a size of 0 frees it.
  if (moved == nullptr && size != 0) return nullptr;
  count(-before);
  return counted(moved);
}

void *memalign(std::size_t alignment, std::size_t size) {
  return counted(__libc_memalign(alignment, size));
}

void *aligned_alloc(std::size_t alignment, std::size_t size) {
  return counted(__libc_memalign(alignment, size));
}

int posix_memalign(void **memory, std::size_t alignment, std::size_t size) {
  const bool isPowerOfTwo = alignment != 0 && (alignment & (alignment - 1)) == 0;
  if (!isPowerOfTwo || alignment % sizeof(void *) != 0) return EINVAL;
  void *const allocated = counted(__libc_memalign(alignment, size));
  if (allocated == nullptr) return ENOMEM;
  *memory = allocated;
  return 0;
}

void free(void *memory) {
  if (memory == nullptr) return;
  count(-sizeOf(memory));
  __libc_free(memory);
}
}
