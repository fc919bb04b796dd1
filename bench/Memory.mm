// Memory of the application at rest, against an application that does nothing but to register a
// name; and what a thousand direct copies add to it.
#include <unistd.h>

#include "bench/support/Memory.h"
#include "bench/support/Results.h"
#include "bench/support/Setting.h"

namespace {

/// After the answer: the end of the launch, and what the run loop does on its first idle rounds.
constexpr useconds_t kUntilAtRestMicroseconds = 1000000;

/// What the first copies bring in (code, caches, the connection to the pasteboard) is no growth.
constexpr int kWarmUpCopies = 100;
constexpr int kCopies = 1000;

MemoryUse atRest(const Program &program) {
  Application application(program);
  // The proxy must be gone before the program is.
  @autoreleasepool {
    application.rootProxy();
  }
  usleep(kUntilAtRestMicroseconds);
  return memoryOf(application.process().pid());
}

void printAtRest(int rounds) {
  Results resident("memory at rest", "KiB");
  Results own("memory at rest, own", "KiB");
  for (int round = 0; round < rounds; ++round) {
    const MemoryUse ours = atRest(contextMenuApp());
    const MemoryUse empty = atRest(emptyApplication());
    resident.addPair(ours.resident, empty.resident);
    own.addPair(ours.own, empty.own);
  }
  resident.print();
  own.print();
}

/// In KiB.
double growth() {
  Application application(contextMenuApp());
  const CopyClient client(application);
  const auto resident = [&] { return memoryOf(application.process().pid()).resident; };
  for (int i = 0; i < kWarmUpCopies; ++i) client.copyLink();
  const double before = resident();
  for (int i = 0; i < kCopies; ++i) client.copyLink();
  return resident() - before;
}

}  // namespace

int main(int argc, char *argv[]) {
  const int rounds = prepareBenchmark(argc, argv, 5);
  @autoreleasepool {
    const AgentProcess agent;
    scriptSmallAccount(agent);
    printAtRest(rounds);
    Results results("memory after 1,000 direct copies", "KiB");
    for (int round = 0; round < rounds; ++round) results.addValue(growth());
    results.print();
  }
  return 0;
}
