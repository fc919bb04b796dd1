#import "tests/e2e/WindowTest.h"

#include <algorithm>

#include "tests/support/ProcessActivity.h"

NSString *const kFileLink = @"getLinkForFile:::::";
NSString *const kFolderLink = @"getLinkForFolder:::::";

namespace {

/// The buttons' row at the window's lower edge, without what else is there.
constexpr int kButtonRowHeight = 75;
constexpr int kFirstButtonX = 250;
constexpr int kIndicatorWidth = 80;

ScriptedSystem &runningSystem(const std::string &program,
                              const ChildProcess::Environment &environment, Application kind) {
  if (kind == Application::OfItsOwn) SharedSystem::end();
  std::string purpose = "scripted agent, " + program;
  for (const auto &[name, value] : environment) purpose += ", " + name + "=" + value;
  return SharedSystem::runningFor<ScriptedSystem>(purpose, program, environment);
}

}  // namespace

std::vector<std::string> SendCall::command() const {
  return {PLUGIN_CALL,
          "send",
          item,
          name,
          std::to_string(isMyDocs),
          std::to_string(isFolder),
          std::to_string(tab),
          std::to_string(isFileId)};
}

std::vector<std::string> ShareCall::command() const {
  return {PLUGIN_CALL, "share", item, "unused", "0", std::to_string(tab), std::to_string(isFileId)};
}

std::unique_ptr<AgentProcess> agentWithContacts() {
  auto agent = std::make_unique<AgentProcess>();
  agent->setScript(@{@"getEmployeeAddressBook" : @{@"contacts" : @3}});
  return agent;
}

ScreenWindow onlyWindow(const std::string &title) {
  ScreenWindow found;
  const bool isThere = waitFor([&] {
    const auto windows = windowsOnScreen();
    if (windows.size() != 1 || windows.front().title != title) return false;
    found = windows.front();
    return true;
  });
  if (!isThere || !waitForKeyboard() || settledPicture(buttonsOf(found)).empty()) return {};
  return found;
}

ScreenArea buttonsOf(const ScreenWindow &window) {
  const ScreenArea &all = window.area;
  return {all.x + kFirstButtonX, all.y + all.height - kButtonRowHeight, all.width - kFirstButtonX,
          kButtonRowHeight};
}

ScreenArea indicatorOf(const ScreenWindow &window) {
  const ScreenArea &all = window.area;
  return {all.x, all.y + all.height - kButtonRowHeight, kIndicatorWidth, kButtonRowHeight};
}

WindowTest::WindowTest(const std::string &program, const ChildProcess::Environment &environment,
                       Application kind)
    : system(runningSystem(program, environment, kind)), kind_(kind) {}

void WindowTest::SetUp() {
  if (system.threadsAtRest == 0) {
    ASSERT_TRUE(application.waitUntilServing()) << application.process().output();
    // The last part of the launch is the start of the pasteboard's server. A window that is opened
    // meanwhile is drawn afterwards.
    ASSERT_TRUE(serves()) << application.process().output();
    system.threadsAtRest = threadsOf(application.process().pid());
  }
  agent->answer(kFileLink, success(@"https://x/serves"));
  outputBefore_ = application.process().output().size();
  recordBefore_ = agent->record();
}

void WindowTest::TearDown() {
  if (!HasFailure() && kind_ == Application::Shared) leaveToNextTest();
  // A test that has left an unexpected state must not make the next one fail, too.
  if (HasFailure() || kind_ == Application::OfItsOwn) SharedSystem::end();
}

void WindowTest::leaveToNextTest() {
  ASSERT_FALSE(application.process().hasEnded()) << application.process().output();
  if (agent == nullptr) startAgent();
  ASSERT_FALSE(agent->process().hasEnded());
  const std::string link = "https://x/at-rest";
  agent->answer(kFileLink, success([NSString stringWithUTF8String:link.c_str()]));
  ChildProcess copy({PLUGIN_CALL, "id-at-rest"});
  // With a time-out: while a menu is open, no call is served.
  ASSERT_TRUE(waitFor([&] { return copy.hasEnded(); })) << output();
  EXPECT_EQ(copy.waitForEnd(), 0) << copy.output();
  EXPECT_EQ(clipboardReadByXclip(), link);
  EXPECT_TRUE(waitForWindows(0)) << output();
  // A load in the background would otherwise ask the next test's agent.
  EXPECT_TRUE(waitFor([&] {
    return threadsOf(application.process().pid()) <= system.threadsAtRest;
  })) << output();
}

void WindowTest::endAgent() {
  agent.reset();
}

void WindowTest::startAgent() {
  agent = agentWithContacts();
  recordBefore_ = 0;
}

std::string WindowTest::output() const {
  return application.process().output().substr(outputBefore_);
}

Lines WindowTest::log() const {
  return logLinesIn(output());
}

long WindowTest::linesInLog(const std::string &line) const {
  const Lines lines = log();
  return std::count(lines.begin(), lines.end(), line);
}

NSArray *WindowTest::calls() const {
  return agent->callsSince(recordBefore_);
}

NSArray *WindowTest::argumentsOf(NSString *operation) const {
  for (NSDictionary *call in [calls() reverseObjectEnumerator]) {
    if ([[call objectForKey:@"operation"] isEqual:operation]) {
      return [call objectForKey:@"arguments"];
    }
  }
  return nil;
}

NSUInteger WindowTest::callsOf(NSString *operation) const {
  NSUInteger count = 0;
  for (NSString *name in [calls() valueForKey:@"operation"]) {
    count += [name isEqualToString:operation];
  }
  return count;
}

testing::AssertionResult WindowTest::serves() {
  agent->answer(kFileLink, success(@"https://x/serves"));
  ChildProcess copy({PLUGIN_CALL, "id-serves"});
  if (const int status = copy.waitForEnd(); status != 0) {
    return testing::AssertionFailure()
           << "the client ends with " << status << ": " << copy.output();
  }
  const std::string link = clipboardReadByXclip();
  if (link == "https://x/serves") return testing::AssertionSuccess();
  return testing::AssertionFailure() << "the clipboard has \"" << link << "\"";
}
