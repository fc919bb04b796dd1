#import "tests/e2e/RunningApplication.h"

#import "tests/e2e/VendedService.h"
#include "tests/support/WindowServer.h"

namespace {

const std::string kRegisteredLine = "Context Menu Plugin Connection successfully created.";

}  // namespace

RunningApplication::RunningApplication(const ChildProcess::Environment &environment)
    : RunningApplication(program(), environment) {}

RunningApplication::RunningApplication(const std::string &program,
                                       const ChildProcess::Environment &environment)
    : process_({program}, environment) {}

std::string RunningApplication::program() {
  return CONTEXT_MENU_APP;
}

bool RunningApplication::waitUntilServing() {
  // The name is registered before the launch is over; only a reply shows that the application
  // serves calls. It is not asked before the name is registered, which may take as long as the
  // application waits for an agent, because a look-up costs far more than reading the log.
  return waitFor([&] {
           if (process_.hasEnded()) return true;
           if (process_.countInOutput(kRegisteredLine) == 0) return false;
           @autoreleasepool {
             return vendedService() != nil;
           }
         }) &&
         !process_.hasEnded();
}

Lines RunningApplication::log() const {
  return logLinesIn(process_.output());
}

ChildProcess::Environment withoutLeakSearch(ChildProcess::Environment environment) {
  environment.emplace_back("ASAN_OPTIONS", "detect_leaks=0");
  return environment;
}

Lines afterStart(const Lines &lines) {
  constexpr int kWindowStyles = 15;
  Lines all;
  for (int style = 1; style <= kWindowStyles; ++style) {
    all.push_back("Failed to determine offsets for style " + std::to_string(style));
  }
  all.insert(all.end(), lines.begin(), lines.end());
  return all;
}

std::string outputOf(const std::vector<std::string> &command) {
  ChildProcess program(command);
  return program.waitForEnd() == 0 ? program.output() : "";
}

std::string clipboardReadByXclip() {
  return outputOf({"/usr/bin/xclip", "-selection", "clipboard", "-o"});
}

void pressReturn() {
  outputOf({"/usr/bin/xdotool", "key", "Return"});
}

bool RunningApplication::isVisible() {
  return !visibleWindowsOf("ContextMenuApp").empty();
}
