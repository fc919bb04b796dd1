#import "tests/e2e/WindowTest.h"

#include <algorithm>

#include "tests/support/CapturedLog.h"

NSString *const kFileLink = @"getLinkForFile:::::";
NSString *const kFolderLink = @"getLinkForFolder:::::";

namespace {

/// The buttons' row at the window's lower edge, without what else is there.
constexpr int kButtonRowHeight = 75;
constexpr int kFirstButtonX = 250;
constexpr int kIndicatorWidth = 80;

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

WindowTest::WindowTest(const std::string &program, const ChildProcess::Environment &environment)
    : application(program, environment) {}

void WindowTest::SetUp() {
  ASSERT_TRUE(application.waitUntilServing()) << application.process().output();
  // The last part of the launch is the start of the pasteboard's server. A window that is opened
  // meanwhile is drawn when that is over.
  ASSERT_TRUE(serves()) << application.process().output();
  outputOfLaunch_ = application.process().output().size();
  callsOfLaunch_ = [agent->calls() count];
}

void WindowTest::endAgent() {
  agent.reset();
}

void WindowTest::startAgent() {
  agent = agentWithContacts();
  callsOfLaunch_ = 0;
}

std::string WindowTest::output() const {
  return application.process().output().substr(outputOfLaunch_);
}

long WindowTest::linesInLog(const std::string &line) const {
  const auto lines = logLinesIn(output());
  return std::count(lines.begin(), lines.end(), line);
}

NSArray *WindowTest::calls() const {
  NSArray *const all = agent->calls();
  return [all subarrayWithRange:NSMakeRange(callsOfLaunch_, [all count] - callsOfLaunch_)];
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

bool WindowTest::serves() {
  agent->answer(kFileLink, success(@"https://x/serves"));
  ChildProcess copy({PLUGIN_CALL, "id-serves"});
  return copy.waitForEnd() == 0 && clipboardReadByXclip() == "https://x/serves";
}
