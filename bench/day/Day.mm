#import "bench/day/Day.h"

#include <algorithm>
#include <stdexcept>

#include "devkit/store/SampleAccount.h"
#import "tests/e2e/SendTab.h"
#import "tests/e2e/VendedService.h"

namespace {

/// Frames of the other tabs' controls, see ScreenTab.
constexpr ScreenArea kCopyButton = {414, 13, 126, 32};
constexpr ScreenArea kDoneButton = {430, 13, 110, 32};

constexpr int kSendTab = 0;
constexpr int kCopyTab = 1;
constexpr int kPeopleTab = 0;
constexpr int kInviteTab = 1;

constexpr const char *kRefreshSeconds = "2";

ChildProcess client(const std::vector<std::string> &arguments) {
  std::vector<std::string> command = {CONTEXTMENU};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return ChildProcess(command);
}

/// Returns whether completions of two letters are listed. The address book is empty while it is
/// fetched again, as it should be; the letters are then deleted.
bool typesAndSeesList() {
  constexpr double kLongEnoughSeconds = 10;
  typeText("ol");
  const double end = detail::secondsNow() + kLongEnoughSeconds;
  while (detail::secondsNow() < end) {
    if (windowsOnScreen().size() == 2) return true;
    detail::pausePolling();
  }
  pressKeys({"BackSpace", "BackSpace"});
  return false;
}

template <class Work>
void repeat(int count, Work work) {
  for (int i = 0; i < count; ++i) work();
}

}  // namespace

Day::Day(const Libraries &libraries)
    : file_(kit_.makeFile("MyDocs/Quarterly figures.csv")),
      folder_(kit_.makeFolder(devkit::kSampleSharedFolder)),
      agent_(std::make_unique<DevelopmentAgent>()),
      counters_(newTemporaryFolder()),
      application_({{"LANGUAGE", "en"},
                    {"LD_PRELOAD", libraries.countingAllocator + ":" + libraries.shortDays},
                    {CountedMemory::kFolderVariable, counters_},
                    {"DAY_SECONDS", kRefreshSeconds}}) {
  must(application_.waitUntilServing(), "the application serves");
  memory_ = std::make_unique<CountedMemory>(counters_, application());
  copyLink();
  fileId_ = itemLastAskedFor();
}

void Day::spend(const Pace &pace) {
  @autoreleasepool {
    repeat(pace.copies, [&] { copyLink(); });
    copyLinksQuickly(pace.quickCopies);
    repeat(pace.mails, [&] { mail(); });
    repeat(pace.copiesFromTab, [&] { copyFromTab(); });
    repeat(pace.invitations, [&] { invite(); });
    repeat(pace.looks, [&] { lookAtPeople(); });
    repeat(pace.mistakes, [&] { makeMistake(); });
    repeat(pace.unfinished, [&] { leaveUnfinished(); });
    repeat(pace.agentRestarts, [&] { restartAgent(); });
  }
}

int Day::refreshes() const {
  return asked("getEmployeeAddressBook");
}

/// How many times this operation of the agent has been called.
int Day::asked(const std::string &operation) const {
  const std::string log = kit_.data("operations.jsonl");
  int count = 0;
  const std::string line = "\"operation\": \"" + operation + "\"";
  for (auto at = log.find(line); at != log.npos; at = log.find(line, at + 1)) ++count;
  return count;
}

/// Its server id, as the client has found it for the agent.
std::string Day::itemLastAskedFor() const {
  const std::string log = kit_.data("operations.jsonl");
  const std::string key = "\"pathOrId\": \"";
  const auto at = log.rfind(key);
  must(at != log.npos, "the agent is asked for an item");
  const auto begin = at + key.size();
  return log.substr(begin, log.find('"', begin) - begin);
}

void Day::must(bool condition, const std::string &what) const {
  if (condition) return;
  constexpr std::size_t kLongEnough = 2000;
  const std::string said = application_.process().output();
  throw std::runtime_error("not so: " + what + "; the application said:\n" +
                           said.substr(said.size() - std::min(said.size(), kLongEnough)));
}

void Day::clientMust(const std::vector<std::string> &arguments) const {
  ChildProcess process = client(arguments);
  must(process.waitForEnd() == 0, arguments.front() + " succeeds: " + process.output());
}

#pragma mark - What the user does

void Day::copyLink() const {
  clientMust({"copy-link", file_});
}

void Day::copyLinksQuickly(int count) const {
  const std::string operation = "getLinkForFile";
  const int before = asked(operation);
  NSString *const item = [NSString stringWithUTF8String:fileId_.c_str()];
  repeat(count, [&] {
    @autoreleasepool {
      // clang-format off
      [vendedService() copyLinkToClipboard:item:NO:NO];
      // clang-format on
    }
  });
  must(asked(operation) == before + count, "each link has been asked for");
}

void Day::openWindow(const std::vector<std::string> &arguments) {
  const std::string former = tab_.window.number;
  clientMust(arguments);
  // Not the window that this call closes.
  const auto isThere = [&] {
    const auto windows = windowsOnScreen();
    if (windows.size() != 1 || windows.front().number == former) return false;
    tab_.window = windows.front();
    return true;
  };
  must(waitFor(isThere) && waitForKeyboard(), "a window opens: " + arguments.front());
}

void Day::openSendWindow(int tab) {
  openWindow({"send", file_, "--tab", std::to_string(tab)});
}

void Day::openShareWindow(int tab) {
  openWindow({"share", folder_, "--tab", std::to_string(tab)});
}

void Day::mail() {
  openSendWindow(kSendTab);
  must(waitFor([] { return typesAndSeesList(); }), "completions are listed");
  pressKeys({"Down", "Return"});
  must(waitForWindows(1), "a completion is taken");
  typeText("guest@example.org,");
  must(tab_.clickAndSeeSheet(kSendButton), "the mail has been sent, or why not is said");
  must(waitForWindows(0), "the window closes after a mail");
}

void Day::copyFromTab() {
  openSendWindow(kCopyTab);
  must(tab_.clickAndSeeSheet(kCopyButton), "the link has been copied, or why not is said");
  must(waitForWindows(0), "the window closes after a copy");
}

void Day::invite() {
  openShareWindow(kInviteTab);
  typeText("thomas.whitfield@brisvale.test,");
  must(tab_.clickAndSeeSheet(kInviteButton), "the colleague is invited, or why not is said");
  must(waitForWindows(1), "the window stays for the next invitation");
  pressKeys({"Escape"});
  must(waitForWindows(0), "Escape closes the window");
}

void Day::lookAtPeople() {
  openShareWindow(kPeopleTab);
  must(tab_.seesAnyRow(), "the people are listed");
  tab_.click(kDoneButton);
  must(waitForWindows(0), "Done closes the window");
}

void Day::makeMistake() {
  openSendWindow(kSendTab);
  must(tab_.clickAndSeeSheet(kSendButton), "a missing recipient is noted");
  must(tab_.dismissAlert(), "the alert can be dismissed");
  pressKeys({"Escape"});
  must(waitForWindows(0), "Escape closes the window");
}

void Day::leaveUnfinished() {
  openSendWindow(kSendTab);
  typeText("oliv");
  openShareWindow(kPeopleTab);
  openSendWindow(kCopyTab);
  openShareWindow(kInviteTab);
  copyLink();
  must(waitForWindows(0), "a copy closes the window");
}

void Day::restartAgent() {
  agent_.reset();
  ChildProcess copying = client({"copy-link", file_});
  agent_ = std::make_unique<DevelopmentAgent>();
  // The application waits for the agent, or says that it could not be reached; both are right.
  copying.waitForEnd();
  must(!application_.process().hasEnded(), "the application outlives the agent");
  copyLink();
}
