#include <cstdio>

#include "devkit/base/Arguments.h"
#import "devkit/client/ContextMenuCall.h"

namespace {

int fail(const devkit::Failure &failure) {
  std::fprintf(stderr, "contextmenu: %s\n", failure.reason.c_str());
  return static_cast<int>(failure.code);
}

}  // namespace

int main(int argc, char *argv[]) {
  const auto arguments = devkit::originalArguments(argc, argv);
  @autoreleasepool {
    const auto parsed = devkit::parseRequest(arguments);
    if (const auto *failure = std::get_if<devkit::Failure>(&parsed)) return fail(*failure);
    const auto &request = std::get<devkit::Request>(parsed);
    if (request.verb == devkit::Verb::Help) {
      std::fputs(devkit::kUsage, stdout);
      return 0;
    }
    if (const auto failure = devkit::perform(request)) return fail(*failure);
    if (request.verb == devkit::Verb::Status) std::puts("the application answers");
    return 0;
  }
}
