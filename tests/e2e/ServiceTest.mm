#import "tests/e2e/ServiceTest.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#import "tests/e2e/WindowTest.h"
#include "tests/support/ProcessActivity.h"

namespace {

ServiceSystem &runningSystem(const std::string &language, Application kind) {
  if (kind == Application::OfItsOwn) SharedSystem::end();
  return SharedSystem::runningFor<ServiceSystem>("development kit, " + language, language);
}

}  // namespace

ServiceTest::ServiceTest(const std::string &language, Application kind)
    : system(runningSystem(language, kind)), kind_(kind) {}

void ServiceTest::SetUp() {
  if (system.threadsAtRest != 0) {
    system.agent.reset();
    kit.empty();
    system.agent = std::make_unique<DevelopmentAgent>();
    return;
  }
  ASSERT_TRUE(application.waitUntilServing()) << application.process().output();
  // The last part of the launch is the start of the pasteboard's server. A window that is opened
  // meanwhile is drawn afterwards.
  ASSERT_TRUE(client({"copy-link", kit.makeFile("first.txt")})) << application.process().output();
  ASSERT_TRUE(waitFor([] { return !clipboardReadByXclip().empty(); }));
  system.threadsAtRest = threadsOf(application.process().pid());
}

void ServiceTest::TearDown() {
  if (!HasFailure() && kind_ == Application::Shared) leaveToNextTest();
  // A test that has left an unexpected state must not make the next one fail, too.
  if (HasFailure() || kind_ == Application::OfItsOwn) SharedSystem::end();
}

void ServiceTest::leaveToNextTest() {
  ASSERT_FALSE(application.process().hasEnded()) << application.process().output();
  // The application caches a colleague whom it has looked up.
  EXPECT_EQ(lastOperation("getUserInfo"), "");
  EXPECT_TRUE(client({"copy-link", kit.makeFile("at-rest.txt")}));
  EXPECT_TRUE(waitForWindows(0)) << application.process().output();
  // A load in the background would otherwise ask the next test's agent.
  EXPECT_TRUE(waitFor([&] {
    return threadsOf(application.process().pid()) <= system.threadsAtRest;
  })) << application.process().output();
}

bool ServiceTest::client(const std::vector<std::string> &arguments) {
  std::vector<std::string> command = {CONTEXTMENU};
  command.insert(command.end(), arguments.begin(), arguments.end());
  ChildProcess process(command);
  const int code = process.waitForEnd();
  EXPECT_EQ(code, 0) << process.output();
  return code == 0;
}

bool ServiceTest::openWindow(const std::vector<std::string> &arguments, const std::string &title) {
  if (!client(arguments)) return false;
  window = onlyWindow(title);
  return !window.number.empty();
}

std::vector<std::string> ServiceTest::mails() const {
  const std::filesystem::path outbox = kit.dataFolder() + "/outbox";
  std::vector<std::string> read;
  if (!std::filesystem::exists(outbox)) return read;
  for (const auto &file : std::filesystem::directory_iterator(outbox)) {
    if (file.path().extension() != ".eml") continue;
    read.push_back(outputOf({"/usr/bin/python3", "-I", READ_MAIL, file.path()}));
  }
  return read;
}

std::string ServiceTest::onlyMail() const {
  if (!waitFor([&] { return !mails().empty(); })) return "";
  // Read again, in case a second mail follows immediately.
  const auto all = mails();
  return all.size() == 1 ? all.front() : "";
}

std::vector<std::string> ServiceTest::operations(const std::string &name) const {
  std::istringstream log(kit.data("operations.jsonl"));
  std::vector<std::string> found;
  for (std::string line; std::getline(log, line);) {
    if (line.find("\"operation\": \"" + name + "\"") != std::string::npos) found.push_back(line);
  }
  return found;
}

std::string ServiceTest::lastOperation(const std::string &name) const {
  const auto all = operations(name);
  return all.empty() ? "" : all.back();
}

testing::AssertionResult has(const std::string &text, const std::string &part) {
  if (text.find(part) != std::string::npos) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "no \"" << part << "\" in:\n" << text;
}
