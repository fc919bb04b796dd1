#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "bench/day/CountedMemory.h"

/// What a process holds at a moment.
struct Usage {
  double residentKiB = 0;   // all pages in memory, shared libraries included
  double allocatedKiB = 0;  // pages of no file
  double inUseKiB = 0;      // of these, what has not been given back to the allocator
  int descriptors = 0;
  int sockets = 0;  // among the descriptors: connections to other processes, and ports
  int ports = 0;    // the addresses under which it can be reached
  int names = 0;    // registered in the whole session
  int windows = 0;  // of the window server, hidden ones included
  int threads = 0;
  double wakeUps = 0;                // a second, of all threads together
  double processorMilliseconds = 0;  // a second
};

/// What is bounded: the growth of a figure since the warm-up, its value at the end, or nothing.
enum class Bounded { Growth, Value, Not };

/// One figure of a Usage, as the table shows it.
struct Column {
  const char *title;
  double (*value)(const Usage &);
  Bounded bounded;
  double bound = 0;
};

/// All of them.
const std::vector<Column> &columns();

/// What the process holds and does when it is at rest: of each figure the least within four
/// seconds, because a refresh that happens to run is not growth. Wake-ups and processor time are
/// those of the quietest of these seconds, which lies between two refreshes. Throws
/// std::runtime_error when the process has ended. windowClass: the class of its windows at the
/// window server.
Usage usageAtRest(pid_t process, const CountedMemory &memory, const std::string &windowClass);
