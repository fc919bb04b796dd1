#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#import "tests/devkit/DevelopmentAgent.h"
#include "tests/devkit/Kit.h"
#import "tests/e2e/RunningApplication.h"
#import "tests/e2e/ScreenTab.h"
#include "tests/e2e/SharedSystem.h"

struct ServiceSystem : SharedSystem {
  const Kit kit;
  std::unique_ptr<DevelopmentAgent> agent = std::make_unique<DevelopmentAgent>();
  RunningApplication application;
  /// The number of the application's threads at rest.
  std::size_t threadsAtRest = 0;

  explicit ServiceSystem(const std::string &language) : application({{"LANGUAGE", language}}) {}
};

/// The whole system as a user has it: the application, the plug-in's client, and behind them the
/// development kit's agent and engine with their store, outbox and log of operations, all as
/// processes of their own on the private screen.
///
/// A test begins with an empty synced folder, a new account and an agent that was just started; the
/// application keeps running from test to test, and no test leaves windows or requests in it.
struct ServiceTest : testing::Test, ScreenTab {
  ServiceSystem &system;
  const Kit &kit = system.kit;
  RunningApplication &application = system.application;

  /// language: the value of LANG in the user's environment.
  explicit ServiceTest(const std::string &language = "en", Application kind = Application::Shared);

  /// Waits until the application serves and is at rest.
  void SetUp() override;
  /// Closes the windows; the application must serve, have no window and nothing else to do.
  void TearDown() override;

  /// Runs the plug-in's client with these arguments to its end; returns whether it succeeded.
  static bool client(const std::vector<std::string> &arguments);

  /// Runs the client and waits for the window that it opens, whose title is given.
  bool openWindow(const std::vector<std::string> &arguments, const std::string &title);

  /// The mails in the outbox, each as a mail program reads it: its headers' names in one line, then
  /// "To:", "Cc:", "Subject:" and "Body:", a line each, with the text as JSON.
  std::vector<std::string> mails() const;

  /// Waits until the outbox has one mail and returns that; "" when it gets none or more.
  std::string onlyMail() const;

  /// The lines in the log of operations for this operation, and the last of them; "" when there is
  /// none.
  std::vector<std::string> operations(const std::string &name) const;
  std::string lastOperation(const std::string &name) const;

 private:
  void leaveToNextTest();

  const Application kind_;
};

/// Whether the text contains this part; prints both when it does not.
testing::AssertionResult has(const std::string &text, const std::string &part);
