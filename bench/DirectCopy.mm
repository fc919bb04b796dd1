// The plug-in's call "copyLinkToClipboard:::" until it returns, against a program that does the
// same exchanges and nothing else. Both are asked by this program, one after the other.
#include "bench/support/Results.h"
#include "bench/support/Setting.h"

namespace {

constexpr int kWarmUpCopies = 30;

double millisecondsOfCopy(const CopyClient &client) {
  return millisecondsOf([&] { client.copyLink(); });
}

}  // namespace

int main(int argc, char *argv[]) {
  const int rounds = prepareBenchmark(argc, argv, 400);
  @autoreleasepool {
    const BusyProcessTable desktop;
    const AgentProcess agent;
    scriptSmallAccount(agent);
    Application application(contextMenuApp());
    Application yardstick(bareCopy());
    const CopyClient ours(application);
    const CopyClient theirs(yardstick);
    for (int i = 0; i < kWarmUpCopies; ++i) {
      ours.copyLink();
      theirs.copyLink();
    }
    Results results("direct copy", "ms");
    addInterleaved(
        results, rounds, [&] { return millisecondsOfCopy(ours); },
        [&] { return millisecondsOfCopy(theirs); });
    results.print();
  }
  return 0;
}
