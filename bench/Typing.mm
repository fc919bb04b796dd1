// How far behind the keyboard the recipients field is, with a book of 100,000 contacts and twenty
// real keys a second: from the display server's time of the key until the application has handled
// it and all events before it, completions included. Against the same keys in the subject's plain
// field. With a million contacts: how far the slowest key is while these are loaded again.
#import <AppKit/AppKit.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include <unistd.h>

#import "app/ContextMenuAppAppDelegate.h"
#include "bench/support/InProcess.h"
#include "bench/support/Results.h"
#include "bench/support/Setting.h"
#import "plugin/ContextMenuProxy.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/ProcessActivity.h"
#import "windows/send/SendAndCopyTabController.h"
#import "windows/send/SendFileController.h"

namespace {

constexpr NSUInteger kContacts = 100'000;
constexpr NSUInteger kMillion = 1'000'000;
const std::string kTool = "/usr/bin/xdotool";
/// Twenty keys a second.
const std::string kKeyDelayMilliseconds = "50";
/// Far longer than a key takes to arrive.
constexpr double kKeyMilliseconds = 500;
/// Parts of the generated contacts' names and addresses, some of them in all and some in none, each
/// typed and deleted letter by letter, so that every length is completed twice.
const std::vector<std::string> kTexts = {"person 12345",  "a",      "example.org", "zebra", "1",
                                         "roberto smith", "bertons"};

std::vector<std::string> backspaces(std::size_t count) {
  std::vector<std::string> command = {kTool, "key", "--delay", kKeyDelayMilliseconds};
  command.insert(command.end(), count, "BackSpace");
  return command;
}

/// By how many milliseconds an event that has just been handled is late. Its time stamp is the
/// lower 32 bits of the monotonic clock's milliseconds.
double millisecondsLate(NSEvent *event) {
  constexpr double kClockCycle = 4294967296.0;
  const double late = std::fmod(millisecondsNow(), kClockCycle) - [event timestamp] * 1000;
  return late < 0 ? late + kClockCycle : late;
}

/// For how many milliseconds this thread has been ready to run while the processors were given to
/// others: the agent, the loading thread and other programs may take both.
double millisecondsWithoutProcessor() {
  std::ifstream file("/proc/thread-self/schedstat");
  double running = 0;
  double waiting = 0;
  file >> running >> waiting;
  return waiting / 1e6;
}

/// Runs a program that presses keys, and handles them meanwhile; adds the milliseconds by which
/// each was late, without the time in which this thread had no processor.
void addLateness(const std::vector<std::string> &command, std::size_t keys,
                 std::vector<double> &late) {
  ChildProcess typist(command);
  const std::size_t wanted = late.size() + keys;
  double waited = millisecondsWithoutProcessor();
  while (late.size() < wanted) {
    @autoreleasepool {
      NSEvent *const event = handleEvent([NSDate dateWithTimeIntervalSinceNow:kWaitTimeoutSeconds]);
      if (event == nil) throw std::runtime_error("keys were lost");
      if ([event type] != NSKeyDown) continue;
      [[event window] displayIfNeeded];
      [[event window] flushWindow];
      const double before = std::exchange(waited, millisecondsWithoutProcessor());
      late.push_back(std::max(0.0, millisecondsLate(event) - (waited - before)));
    }
  }
  if (typist.waitForEnd() != 0) throw std::runtime_error("no keys: " + typist.output());
}

std::vector<double> latenessIn(NSView *field) {
  [[field window] makeFirstResponder:field];
  std::vector<double> late;
  for (const std::string &text : kTexts) {
    addLateness({kTool, "type", "--delay", kKeyDelayMilliseconds, "--", text}, text.size(), late);
    addLateness(backspaces(text.size()), text.size(), late);
  }
  return late;
}

double percentile(std::vector<double> values, std::size_t hundredths) {
  const auto place =
      values.begin() + static_cast<std::ptrdiff_t>((values.size() - 1) * hundredths / 100);
  std::nth_element(values.begin(), place, values.end());
  return *place;
}

NSTokenField *recipientsIn(NSView *view) {
  if ([view isKindOfClass:[NSTokenField class]]) return static_cast<NSTokenField *>(view);
  for (NSView *subview in [view subviews]) {
    if (NSTokenField *const found = recipientsIn(subview)) return found;
  }
  return nil;
}

/// Whether a key that is pressed now reaches the window. The window manager may give it the
/// keyboard some time after the window has become the key window.
bool hasKeyboard() {
  ChildProcess typist({kTool, "key", "shift"});
  typist.waitForEnd();
  const double end = millisecondsNow() + kKeyMilliseconds;
  while (millisecondsNow() < end) {
    @autoreleasepool {
      NSEvent *const event = handleEvent([NSDate dateWithTimeIntervalSinceNow:0.01]);
      if ([event type] == NSFlagsChanged) return true;
    }
  }
  return false;
}

ContextMenuAppAppDelegate *applicationDelegate() {
  return static_cast<ContextMenuAppAppDelegate *>([NSApp delegate]);
}

/// Launches with a book of that size and opens the send window.
SendAndCopyTabController *launchWithWindow(NSUInteger contacts) {
  launchInProcess();
  handleEventsUntil(
      [&] { return [[applicationDelegate() addressBookForShare] count] == contacts; });
  ContextMenuProxy *const proxy = [[[ContextMenuProxy alloc] init] autorelease];
  // clang-format off
  [proxy LaunchSendCopyLinkTab:@"id":@"name":NO:NO:0:YES];
  // clang-format on
  handleEventsUntil([] { return [openWindow() isKeyWindow] && hasKeyboard(); });
  return [openWindow() windowController];
}

void measureWithSubject(int rounds) {
  SendAndCopyTabController *const controller = launchWithWindow(kContacts);
  NSTokenField *const recipients = recipientsIn([[controller window] contentView]);
  NSTextField *const subject = [[controller sendFile] mailSubject];
  Results middle("typing 100,000, recipients", "ms");
  Results slowest("typing 100,000, slowest of a hundred keys", "ms");
  addInterleaved(
      middle, rounds,
      [&] {
        const std::vector<double> late = latenessIn(recipients);
        slowest.addValue(percentile(late, 99));
        return percentile(late, 50);
      },
      [&] { return percentile(latenessIn(subject), 50); });
  middle.print();
  slowest.print();
}

/// The same texts until the book is there again and its former lists have been released, which the
/// loading thread does before it ends.
std::vector<double> latenessDuringAReload(NSTokenField *recipients) {
  std::vector<double> late = latenessIn(recipients);
  const std::size_t threads = threadsOf(getpid());
  late.clear();
  [applicationDelegate() updateAddressBook:nil];
  do {
    const std::vector<double> more = latenessIn(recipients);
    late.insert(late.end(), more.begin(), more.end());
  } while ([[applicationDelegate() addressBookForShare] count] != kMillion ||
           threadsOf(getpid()) > threads);
  return late;
}

void measureDuringReloads(int rounds) {
  SendAndCopyTabController *const controller = launchWithWindow(kMillion);
  NSTokenField *const recipients = recipientsIn([[controller window] contentView]);
  Results slowest("typing 1,000,000, slowest key during a reload", "ms");
  Results usual("typing 1,000,000, slowest key at other times", "ms");
  for (int round = 0; round < rounds; ++round) {
    usual.addValue(percentile(latenessIn(recipients), 100));
    slowest.addValue(percentile(latenessDuringAReload(recipients), 100));
  }
  slowest.print();
  usual.print();
}

}  // namespace

int main(int argc, char *argv[]) {
  const auto [rounds, isMillion] = benchmarkArguments(argc, argv, 5);
  // The application logs when windows open and close; its lines must not mix with the results.
  const CapturedLog log;
  @autoreleasepool {
    const AgentProcess agent;
    const NSUInteger contacts = isMillion ? kMillion : kContacts;
    agent.setScript(@{
      @"getEmployeeAddressBook" : @{@"contacts" : [NSNumber numberWithUnsignedInteger:contacts]}
    });
    if (isMillion) {
      measureDuringReloads(rounds);
    } else {
      measureWithSubject(rounds);
    }
  }
  _exit(0);
}
