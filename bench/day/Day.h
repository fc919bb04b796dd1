#pragma once

#include <memory>
#include <string>
#include <vector>

#include "bench/day/CountedMemory.h"
#import "tests/devkit/DevelopmentAgent.h"
#include "tests/devkit/Kit.h"
#import "tests/e2e/RunningApplication.h"
#import "tests/e2e/ShareTab.h"

/// How much a user does in a tenth of an hour.
struct Pace {
  int copies = 0;         // links copied from the file manager's menu
  int quickCopies = 0;    // the same by a plug-in that stays connected
  int mails = 0;          // links mailed from the window
  int copiesFromTab = 0;  // links copied from the window
  int invitations = 0;    // colleagues invited
  int looks = 0;          // at the people with access to a folder, until they are listed
  int mistakes = 0;       // sending without a recipient: an alert, and Escape
  int unfinished = 0;     // windows of both kinds opened over each other and left
  int agentRestarts = 0;  // each while a link is being copied
};

/// The application with the development kit's agent, engine and client, on the private screen, and
/// a user without pauses, with real keys and clicks. The daily refresh of the address book runs
/// every other second, so that it coincides with everything else.
///
/// Throws std::runtime_error when an expected result does not appear in time.
class Day {
 public:
  /// The libraries to preload into the application: the paths of short_days and of
  /// counting_allocator.
  struct Libraries {
    std::string shortDays;
    std::string countingAllocator;
  };

  /// Waits until the application serves.
  explicit Day(const Libraries &libraries);

  void spend(const Pace &pace);

  /// How many times the address book has been asked for.
  int refreshes() const;

  pid_t application() const { return application_.process().pid(); }

  /// The application's.
  const CountedMemory &memory() const { return *memory_; }

 private:
  int asked(const std::string &operation) const;
  std::string itemLastAskedFor() const;
  void must(bool condition, const std::string &what) const;
  void clientMust(const std::vector<std::string> &arguments) const;
  void copyLink() const;
  void copyLinksQuickly(int count) const;
  void openWindow(const std::vector<std::string> &arguments);
  void openSendWindow(int tab);
  void openShareWindow(int tab);
  void mail();
  void copyFromTab();
  void invite();
  void lookAtPeople();
  void makeMistake();
  void leaveUnfinished();
  void restartAgent();

  const Kit kit_;
  std::string file_;
  std::string fileId_;
  std::string folder_;
  std::unique_ptr<DevelopmentAgent> agent_;
  const std::string counters_;
  RunningApplication application_;
  std::unique_ptr<CountedMemory> memory_;
  ShareTab tab_;  // of either window
};
