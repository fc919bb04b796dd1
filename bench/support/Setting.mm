#import "bench/support/Setting.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#import "plugin/ContextMenuService.h"
#include "tests/support/PrivateSession.h"

/// A protocol is only known at run time when a class of the program adopts it.
@interface ContextMenuServiceAdopter : NSObject <ContextMenuService>
@end
// Never instantiated.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wprotocol"
@implementation ContextMenuServiceAdopter
@end
#pragma clang diagnostic pop

namespace {

constexpr int kProcessesOfADesktop = 200;

}  // namespace

BenchmarkArguments benchmarkArguments(int argc, char *argv[], int defaultRounds) {
  enterPrivateSession(argc, argv, Screen::Private);
  BenchmarkArguments arguments = {.rounds = defaultRounds, .isMillion = false};
  for (int i = 1; i < argc; ++i) {
    const std::string_view name = argv[i];
    if (name == "--million") {
      arguments.isMillion = true;
    } else if (name == "--rounds" && i + 1 < argc && std::atoi(argv[i + 1]) > 0) {
      arguments.rounds = std::atoi(argv[++i]);
    } else {
      std::fprintf(stderr, "usage: %s [--rounds N] [--million]\n", argv[0]);
      std::exit(2);
    }
  }
  return arguments;
}

int prepareBenchmark(int argc, char *argv[], int defaultRounds) {
  const BenchmarkArguments arguments = benchmarkArguments(argc, argv, defaultRounds);
  if (!arguments.isMillion) return arguments.rounds;
  std::fprintf(stderr, "%s has no rows for a million contacts\n", argv[0]);
  std::exit(2);
}

void scriptSmallAccount(const AgentProcess &agent) {
  agent.setScript(@{
    @"getLinkForFile:::::" : @{@"reply" : success(@"https://example.org/l/0123456789abcdef")},
    @"getEmployeeAddressBook" : @{@"contacts" : @60},
    @"getHomeDirectoryInfo" : @{@"reply" : @{@"homefolder" : @"4711", @"name" : @"MyDocs"}}
  });
}

BusyProcessTable::BusyProcessTable() {
  for (int i = 0; i < kProcessesOfADesktop; ++i) {
    const pid_t process = fork();
    if (process == 0) {
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      for (;;) pause();
    }
    if (process > 0) processes_.push_back(process);
  }
}

BusyProcessTable::~BusyProcessTable() {
  for (const pid_t process : processes_) kill(process, SIGKILL);
  for (const pid_t process : processes_) waitpid(process, nullptr, 0);
}

PluginClient::PluginClient(NSDistantObject *proxy) : proxy_([proxy retain]) {
  if (proxy == nil) throw std::runtime_error("no program answers to the client");
  [proxy_ setProtocolForProxy:@protocol(ContextMenuService)];
}

PluginClient::PluginClient(Application &application) : PluginClient(application.rootProxy()) {}

PluginClient::PluginClient(NSString *connectionName)
    : PluginClient([NSConnection rootProxyForConnectionWithRegisteredName:connectionName
                                                                     host:nil]) {}

PluginClient::~PluginClient() {
  [proxy_ release];
}

void PluginClient::copyLink() const {
  @autoreleasepool {
    // clang-format off
    [static_cast<id>(proxy_) copyLinkToClipboard:@"4711":NO:NO];
    // clang-format on
  }
}

void PluginClient::openSendWindow() const {
  @autoreleasepool {
    // clang-format off
    [static_cast<id>(proxy_) LaunchSendCopyLinkTab:@"4711":@"Quarterly figures.csv":NO:NO:NO:YES];
    // clang-format on
  }
}

void PluginClient::openShareWindow() const {
  @autoreleasepool {
    // clang-format off
    [static_cast<id>(proxy_) LaunchShareFolderTab:@"4711":@"Project Aurora":NO:NO:YES];
    // clang-format on
  }
}
