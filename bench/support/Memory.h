#pragma once

#include <sys/types.h>

/// Memory of a process in KiB.
struct MemoryUse {
  double resident = 0;      // everything in memory, the shared libraries included
  double proportional = 0;  // this process's share of each shared page
  double own = 0;           // pages that nobody else has
  double anonymous = 0;     // pages of no file: what was allocated, without the libraries
};

/// Throws std::runtime_error when the process has ended.
MemoryUse memoryOf(pid_t process);

/// The highest resident memory of this process since resetPeak, in KiB.
double peakResident();
void resetPeak();
