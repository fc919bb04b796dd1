// The plug-in's call that opens a window until the window has been drawn, against the bare opening
// of the same interface file: a window controller that loads it, orders the window front, and does
// nothing else. Both in this process; the plug-in's side is a process of its own.
#import <AppKit/AppKit.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "bench/support/InProcess.h"
#include "bench/support/Results.h"
#include "bench/support/Setting.h"
#include "tests/support/CapturedLog.h"

/// Has the outlets of the application's own controllers, so that the interface files load as they
/// do there.
@interface BareWindowController : NSWindowController {
 @private
  IBOutlet NSTabView *sendAndCopyTab;
  IBOutlet id sendFile;
  IBOutlet id sendCopyFile;
  IBOutlet NSTabView *shareFolderTab;
  IBOutlet id givePermissionTab;
  IBOutlet id sendInviteTab;
}
@end

@implementation BareWindowController
@end

namespace {

constexpr int kWarmUpWindows = 10;

/// The end of an opening, on both sides: the queue is empty and nothing is left to be drawn.
void drawCompletely(NSWindow *window) {
  while (handleEvent([NSDate distantPast]) != nil) continue;
  [window displayIfNeeded];
  [window flushWindow];
}

/// The plug-in's process.
class Client {
 public:
  Client() : pipe_(newTemporaryFolder() + "/commands") {
    if (mkfifo(pipe_.c_str(), S_IRUSR | S_IWUSR) != 0) throw std::runtime_error("no pipe " + pipe_);
    process_ = std::make_unique<ChildProcess>(std::vector<std::string>{OPEN_WINDOW_CLIENT, pipe_});
    handleEventsUntil([&] { return process_->countInOutput("ready") == 1; });
    commands_ = open(pipe_.c_str(), O_WRONLY | O_CLOEXEC);
  }
  ~Client() { close(commands_); }
  Client(const Client &) = delete;
  Client &operator=(const Client &) = delete;

  /// Returns at once.
  void call(char command) {
    ++calls_;
    if (write(commands_, &command, 1) != 1) throw std::runtime_error("the client has ended");
  }

  /// Waits for the call's return and returns when it began.
  double startOfCall() const {
    handleEventsUntil([&] { return process_->countInOutput("called ") == calls_; });
    const std::string output = process_->output();
    return std::stod(output.substr(output.rfind("called ") + std::string("called ").size()));
  }

 private:
  std::string pipe_;
  std::unique_ptr<ChildProcess> process_;
  int commands_ = -1;
  int calls_ = 0;
};

/// A window of the application, and how its plug-in asks for it.
struct Kind {
  const char *row;
  NSString *interfaceFile;
  char command;
};

double millisecondsOfOurs(Client &client, const Kind &kind) {
  double end = 0;
  @autoreleasepool {
    client.call(kind.command);
    handleEventsUntil([] { return openWindow() != nil; });
    drawCompletely(openWindow());
    end = millisecondsNow();
  }
  const double start = client.startOfCall();
  @autoreleasepool {
    [openWindow() close];
    handleEventsUntil([] { return openWindow() == nil; });
  }
  // Closing hides the application, so that the yardstick would show nothing.
  [NSApp unhideWithoutActivation];
  return end - start;
}

double millisecondsOfYardstick(const Kind &kind) {
  NSWindowController *controller = nil;
  double milliseconds = 0;
  @autoreleasepool {
    milliseconds = millisecondsOf([&] {
      controller = [[BareWindowController alloc] initWithWindowNibName:kind.interfaceFile];
      [[controller window] orderFrontRegardless];
      drawCompletely([controller window]);
    });
    if (openWindow() != [controller window])
      throw std::runtime_error("the yardstick shows nothing");
    [controller close];
    while (handleEvent([NSDate distantPast]) != nil) continue;
  }
  [controller release];
  return milliseconds;
}

void measure(Client &client, const Kind &kind, int rounds) {
  for (int i = 0; i < kWarmUpWindows; ++i) {
    millisecondsOfOurs(client, kind);
    millisecondsOfYardstick(kind);
  }
  Results results(kind.row, "ms");
  addInterleaved(
      results, rounds, [&] { return millisecondsOfOurs(client, kind); },
      [&] { return millisecondsOfYardstick(kind); });
  results.print();
}

}  // namespace

int main(int argc, char *argv[]) {
  const int rounds = prepareBenchmark(argc, argv, 60);
  // The application logs when windows open and close; its lines must not mix with the results.
  const CapturedLog log;
  @autoreleasepool {
    const AgentProcess agent;
    scriptSmallAccount(agent);
    launchInProcess();
    Client client;
    measure(client, {"send window", @"MainWindow", 's'}, rounds);
    measure(client, {"share window", @"ShareFolder", 'h'}, rounds);
  }
  _exit(0);
}
