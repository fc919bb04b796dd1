#pragma once

#include <memory>
#include <string>
#include <vector>

#import "tests/devkit/DevelopmentAgent.h"
#include "tests/devkit/Kit.h"
#import "tests/e2e/RunningApplication.h"
#import "tests/e2e/ScreenTab.h"

/// How much somebody does in a tenth of an hour.
struct Pace {
  int copies = 0;         // links copied from the file manager's menu
  int mails = 0;          // links mailed from the window
  int copiesFromTab = 0;  // links copied from the window
  int invitations = 0;    // colleagues invited
  int looks = 0;          // at the people with access to a folder
  int mistakes = 0;       // sending without a recipient: an alert, and Escape
  int unfinished = 0;     // windows of both kinds opened over each other and left
  int agentRestarts = 0;  // each while a link is being copied
};

/// The application with the development kit's agent, engine and client, on the private screen, and
/// a user who never rests, with real keys and clicks. The daily refresh of the address book comes
/// every other second, so that it meets everything else.
///
/// Whatever does not come to be that should throws std::runtime_error.
class Day {
 public:
  /// Waits until the application serves. shortDays: the path of the library that shortens the days.
  explicit Day(const std::string &shortDays);

  void spend(const Pace &pace);

  /// How many times the address book has been asked for.
  int refreshes() const;

  pid_t application() const { return application_.process().pid(); }

 private:
  void must(bool condition, const std::string &what) const;
  void clientMust(const std::vector<std::string> &arguments) const;
  void copyLink() const;
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
  std::string folder_;
  std::unique_ptr<DevelopmentAgent> agent_;
  RunningApplication application_;
  ScreenTab tab_;
};
