// Memory of the application at rest, against an application that only registers a name; and the
// growth by a thousand direct copies and hundreds of windows.
#include <unistd.h>

#include "bench/support/Memory.h"
#include "bench/support/Results.h"
#include "bench/support/Setting.h"

namespace {

/// After the reply: the end of the launch and the first idle rounds of the run loop.
constexpr useconds_t kUntilAtRestMicroseconds = 1000000;

/// What the first copies load (code, caches, the connection to the pasteboard) is no growth.
constexpr int kWarmUpCopies = 100;
constexpr int kCopies = 1000;

MemoryUse atRest(const Program &program) {
  Application application(program);
  // The proxy must be released before the program ends.
  @autoreleasepool {
    application.rootProxy();
  }
  usleep(kUntilAtRestMicroseconds);
  return memoryOf(application.process().pid());
}

/// An empty application with a folder of its own for names, so that it is not in the way of the
/// measured one.
Program neighbour() {
  Program program = emptyApplication();
  program.environment.emplace_back("TEMP", newTemporaryFolder());
  return program;
}

/// One more application runs meanwhile, as on a desktop in use: otherwise pages of the platform's
/// libraries are this process's own or not as it happens that another program uses them.
void printAtRest(int rounds) {
  const Application other(neighbour());
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

/// Of each kind. The platform fills caches with the first ones.
constexpr int kWarmUpWindows = 50;
constexpr int kWindows = 200;

/// The application's growth, in KiB, while a client does something many times.
template <class Repeat>
double growth(Repeat repeat, int warmUp, int count) {
  Application application(contextMenuApp());
  double before = 0;
  {
    @autoreleasepool {
      const PluginClient client(application);
      repeat(client, warmUp);
      before = memoryOf(application.process().pid()).resident;
      repeat(client, count);
    }
  }
  return memoryOf(application.process().pid()).resident - before;
}

void copyLinks(const PluginClient &client, int count) {
  for (int i = 0; i < count; ++i) client.copyLink();
}

/// Each opening closes the window before it, the copy closes the last one.
void openWindows(const PluginClient &client, int count) {
  for (int i = 0; i < count; ++i) {
    client.openSendWindow();
    client.openShareWindow();
  }
  client.copyLink();
}

template <class Repeat>
void printGrowth(const char *row, int rounds, Repeat repeat, int warmUp, int count) {
  Results results(row, "KiB");
  for (int round = 0; round < rounds; ++round) results.addValue(growth(repeat, warmUp, count));
  results.print();
}

}  // namespace

int main(int argc, char *argv[]) {
  const int rounds = prepareBenchmark(argc, argv, 5);
  @autoreleasepool {
    const AgentProcess agent;
    scriptSmallAccount(agent);
    printAtRest(rounds);
    printGrowth("memory after 1,000 direct copies", rounds, copyLinks, kWarmUpCopies, kCopies);
    printGrowth("memory after 200 windows", rounds, openWindows, kWarmUpWindows, kWindows);
  }
  return 0;
}
