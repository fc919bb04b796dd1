// How far behind the keyboard the recipients field is, with a book of 100,000 contacts and twenty
// real keys a second: from the display server's time of the key until the application has handled
// it and all events before it, completions included. Against the same keys in the subject's plain
// field.
#import <AppKit/AppKit.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <unistd.h>

#import "app/ContextMenuAppAppDelegate.h"
#include "bench/support/InProcess.h"
#include "bench/support/Results.h"
#include "bench/support/Setting.h"
#import "plugin/ContextMenuProxy.h"
#include "tests/support/CapturedLog.h"
#import "windows/send/SendAndCopyTabController.h"
#import "windows/send/SendFileController.h"

namespace {

constexpr NSUInteger kContacts = 100'000;
const std::string kTool = "/usr/bin/xdotool";
/// Twenty keys a second.
const std::string kKeyDelayMilliseconds = "50";
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

/// Runs a program that presses keys, and handles them meanwhile; adds the milliseconds by which
/// each was late.
void addLateness(const std::vector<std::string> &command, std::size_t keys,
                 std::vector<double> &late) {
  ChildProcess typist(command);
  const std::size_t wanted = late.size() + keys;
  while (late.size() < wanted) {
    @autoreleasepool {
      NSEvent *const event = handleEvent([NSDate dateWithTimeIntervalSinceNow:kWaitTimeoutSeconds]);
      if (event == nil) throw std::runtime_error("keys were lost");
      if ([event type] != NSKeyDown) continue;
      [[event window] displayIfNeeded];
      [[event window] flushWindow];
      late.push_back(millisecondsLate(event));
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

}  // namespace

int main(int argc, char *argv[]) {
  const int rounds = prepareBenchmark(argc, argv, 5);
  // The application logs when windows open and close; its lines must not mix with the results.
  const CapturedLog log;
  @autoreleasepool {
    const AgentProcess agent;
    agent.setScript(@{
      @"getEmployeeAddressBook" : @{@"contacts" : [NSNumber numberWithUnsignedInteger:kContacts]}
    });
    launchInProcess();
    ContextMenuAppAppDelegate *const delegate =
        static_cast<ContextMenuAppAppDelegate *>([NSApp delegate]);
    handleEventsUntil([&] { return [[delegate addressBookForShare] count] == kContacts; });
    ContextMenuProxy *const proxy = [[[ContextMenuProxy alloc] init] autorelease];
    // clang-format off
    [proxy LaunchSendCopyLinkTab:@"id":@"name":NO:NO:0:YES];
    // clang-format on
    handleEventsUntil([] { return openWindow() != nil && [openWindow() isKeyWindow]; });
    NSWindow *const window = openWindow();
    SendAndCopyTabController *const controller = [window windowController];
    NSTokenField *const recipients = recipientsIn([window contentView]);
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
  _exit(0);
}
