// The start of the application's process until the plug-in gets a reply from it, against an
// application that only registers a name.
#include "bench/support/Results.h"
#include "bench/support/Setting.h"

namespace {

double millisecondsToAnswer(const Program &program) {
  std::unique_ptr<Application> application;
  return millisecondsOf([&] {
    @autoreleasepool {
      application = std::make_unique<Application>(program);
      application->rootProxy();
    }
  });
}

}  // namespace

int main(int argc, char *argv[]) {
  const int rounds = prepareBenchmark(argc, argv, 30);
  @autoreleasepool {
    const AgentProcess agent;
    scriptSmallAccount(agent);
    // The first start on a desktop also starts the platform's daemons and fills its caches.
    millisecondsToAnswer(contextMenuApp());
    millisecondsToAnswer(emptyApplication());
    Results results("launch", "ms");
    addInterleaved(
        results, rounds, [] { return millisecondsToAnswer(contextMenuApp()); },
        [] { return millisecondsToAnswer(emptyApplication()); });
    results.print();
  }
  return 0;
}
