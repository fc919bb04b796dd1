#pragma once

#import <Foundation/Foundation.h>

#include "bench/support/Application.h"
#include "tests/support/AgentProcess.h"

/// The arguments of a benchmark program.
struct BenchmarkArguments {
  int rounds;      // --rounds N
  bool isMillion;  // --million: with a million contacts, instead of the usual address books
};

/// Prepares a benchmark program: moves it to a desktop of its own (unless it is on one already) and
/// reads its arguments. To be called first in main.
BenchmarkArguments benchmarkArguments(int argc, char *argv[], int defaultRounds);

/// The same for a program without --million. Returns the number of rounds.
int prepareBenchmark(int argc, char *argv[], int defaultRounds);

/// The agent in the benchmarks of whole programs: a link for every file, a small address book, a
/// home folder.
void scriptSmallAccount(const AgentProcess &agent);

/// Runs as many sleeping processes as a usual desktop has, for its lifetime.
class BusyProcessTable {
 public:
  BusyProcessTable();
  ~BusyProcessTable();
  BusyProcessTable(const BusyProcessTable &) = delete;
  BusyProcessTable &operator=(const BusyProcessTable &) = delete;

 private:
  std::vector<pid_t> processes_;
};

/// Sends the operations as the plug-in does: a client that knows the interface. Must be destroyed
/// before the application ends. Each operation returns when the call has returned.
class PluginClient {
 public:
  explicit PluginClient(Application &application);
  ~PluginClient();
  PluginClient(const PluginClient &) = delete;
  PluginClient &operator=(const PluginClient &) = delete;

  /// For a program that has registered this name; throws std::runtime_error when there is none.
  explicit PluginClient(NSString *connectionName);

  void copyLink() const;

  /// Open the window on its first tab.
  void openSendWindow() const;
  void openShareWindow() const;

 private:
  explicit PluginClient(NSDistantObject *proxy);

  NSDistantObject *proxy_;
};
