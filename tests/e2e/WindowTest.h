#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#import "tests/e2e/RunningApplication.h"
#include "tests/e2e/Screen.h"
#include "tests/e2e/SharedSystem.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/Strings.h"

extern NSString *const kFileLink;
extern NSString *const kFolderLink;

/// The arguments of the operation that opens the send and copy-link window, as plug_in_call takes
/// them.
struct SendCall {
  std::string item = "id-1";
  std::string name = "Quarterly figures.csv";
  int isMyDocs = 0;
  int isFolder = 0;
  int tab = 1;
  int isFileId = 1;

  std::vector<std::string> command() const;
};

struct ShareCall {
  std::string item = "id-2";
  int tab = 0;
  int isFileId = 1;

  std::vector<std::string> command() const;
};

/// An agent with an address book, so that the application, once it has been launched, asks for
/// none when it opens a window.
std::unique_ptr<AgentProcess> agentWithContacts();

/// A client of the plug-in as a process of its own.
template <class Call>
ChildProcess client(const Call &call) {
  return ChildProcess(call.command());
}

/// Makes the call and waits for its return; returns whether it succeeded.
template <class Call>
bool open(const Call &call) {
  return client(call).waitForEnd() == 0;
}

/// Waits until one window of the application is visible, with the title, drawn and focused; returns
/// it, or one without a number after the time-out.
ScreenWindow onlyWindow(const std::string &title);

/// The part of the window in which its buttons are, and that with its busy indicator.
ScreenArea buttonsOf(const ScreenWindow &window);
ScreenArea indicatorOf(const ScreenWindow &window);

/// The application with its scripted agent, at rest after its launch.
struct ScriptedSystem : SharedSystem {
  std::unique_ptr<AgentProcess> agent = agentWithContacts();
  RunningApplication application;
  /// The number of the application's threads at rest.
  std::size_t threadsAtRest = 0;

  ScriptedSystem(const std::string &program, const ChildProcess::Environment &environment)
      : application(program, environment) {}
};

/// The application with its agent, both as processes of their own, on the private screen. Calls and
/// log lines count from when the application is at rest, after its launch or after the previous
/// test. Nothing is left to the next test: after each the windows are closed, and the application
/// must serve, have no window and nothing else to do.
struct WindowTest : testing::Test {
  ScriptedSystem &system;
  std::unique_ptr<AgentProcess> &agent = system.agent;
  RunningApplication &application = system.application;

  /// program: the application's executable, for a copy of it elsewhere. environment: additions to
  /// this process's own.
  explicit WindowTest(const std::string &program = RunningApplication::program(),
                      const ChildProcess::Environment &environment = {},
                      Application kind = Application::Shared);
  void SetUp() override;
  void TearDown() override;

  /// Kills the agent, and starts another one, which has not been called yet.
  void endAgent();
  void startAgent();

  /// What the application has printed.
  std::string output() const;
  Lines log() const;
  long linesInLog(const std::string &line) const;

  /// The arguments of the agent's last call of this operation, nil when there was none.
  NSArray *argumentsOf(NSString *operation) const;

  /// How many times this operation of the agent was called.
  NSUInteger callsOf(NSString *operation) const;

  /// Whether the application serves: a client copies a link and it arrives.
  testing::AssertionResult serves();

 private:
  NSArray *calls() const;
  void leaveToNextTest();

  const Application kind_;
  std::size_t outputBefore_ = 0;
  std::size_t recordBefore_ = 0;
};
