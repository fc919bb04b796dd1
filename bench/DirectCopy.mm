// The plug-in's call "copyLinkToClipboard:::" until it returns, against a program that sends the
// same requests and nothing else. Both are asked by this program, one after the other.
#include "bench/support/Results.h"
#include "bench/support/Setting.h"

namespace {

constexpr int kWarmUpCopies = 30;

/// One sample is the mean of this many calls, an even number: of two calls in a row the yardstick
/// makes a new connection to the agent in one only, because the platform empties its pool late.
constexpr int kCopiesOfASample = 4;

double millisecondsOfCopy(const PluginClient &client) {
  return millisecondsOf([&] {
           for (int i = 0; i < kCopiesOfASample; ++i) client.copyLink();
         }) /
         kCopiesOfASample;
}

}  // namespace

int main(int argc, char *argv[]) {
  const int rounds = prepareBenchmark(argc, argv, 200);
  @autoreleasepool {
    const BusyProcessTable desktop;
    const AgentProcess agent;
    scriptSmallAccount(agent);
    Application application(contextMenuApp());
    Application yardstick(bareCopy());
    const PluginClient ours(application);
    const PluginClient theirs(yardstick);
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
