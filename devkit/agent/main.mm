#include <cstdio>

#import "agent/AgentIdentity.h"
#import "devkit/agent/AgentOptions.h"
#import "devkit/agent/AgentProcess.h"
#import "devkit/agent/KRVAgentService.h"
#import "devkit/agent/TerminationSignals.h"
#include "devkit/base/Arguments.h"
#include "platform/gnustep/connections/TemporaryFolder.h"

namespace {

enum ExitCode { kEnded = 0, kFailed = 1, kWrongUsage = 2, kNameTaken = 3 };

int fail(ExitCode code, const std::string &reason) {
  std::fprintf(stderr, "VeldaneKRVAgent: %s\n", reason.c_str());
  return code;
}

int run(const devkit::AgentOptions &options) {
  const auto folder = platform::temporaryFolder();
  if (!folder.problem.empty())
    return fail(kFailed, folder.problem + "; no connection in it could be trusted");
  // Before anything slow: an agent that is ended while it fills its address book ends at once, one
  // that is ended later finishes the current call.
  std::string problem;
  auto operations = devkit::openOperations(options, problem);
  if (!operations) return fail(kFailed, problem);
  const int terminationSignals = devkit::routeTerminationSignals();
  if (terminationSignals < 0) return fail(kFailed, "cannot listen for signals");

  KRVAgentService *service =
      [[[KRVAgentService alloc] initWithOperations:std::move(operations)] autorelease];
  AgentProcess *process = [[[AgentProcess alloc] initWithService:service] autorelease];
  if (![process registerName])
    return fail(kNameTaken, "another agent is already registered as " +
                                std::string([agent::kConnectionName UTF8String]));
  std::printf("VeldaneKRVAgent: registered as %s, data in %s\n",
              [agent::kConnectionName UTF8String], options.dataFolder.c_str());
  std::fflush(stdout);
  [process serveUntilReadable:terminationSignals];
  return kEnded;
}

}  // namespace

int main(int argc, char *argv[]) {
  const auto arguments = devkit::originalArguments(argc, argv);
  @autoreleasepool {
    const auto options = devkit::parseAgentOptions(arguments);
    if (!options.problem.empty())
      return fail(kWrongUsage, options.problem + "\n" + devkit::kAgentUsage);
    if (options.help) {
      std::fputs(devkit::kAgentUsage, stdout);
      return kEnded;
    }
    return run(options);
  }
}
