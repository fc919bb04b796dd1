#include "platform/gnustep/launch/LaunchConditions.h"

#include <X11/Xlib.h>

#include <cstdio>
#include <cstdlib>

#include "platform/gnustep/connections/TemporaryFolder.h"
#include "platform/gnustep/launch/SingleInstance.h"

namespace platform {
namespace {

/// For the error handler, whose only argument is the display.
std::string &programName() {
  static std::string *const name = new std::string;
  return *name;
}

int endWithoutDisplay(Display *display) {
  endLaunch(programName(), LaunchFailure::NoPlaceToRun,
            std::string("the display \"") + DisplayString(display) + "\" is gone");
}

}  // namespace

void endLaunch(const std::string &program, LaunchFailure failure, const std::string &reason) {
  std::fprintf(stderr, "%s: %s\n", program.c_str(), reason.c_str());
  std::exit(static_cast<int>(failure));
}

void endUnlessLaunchable(const std::string &program) {
  const TemporaryFolder folder = temporaryFolder();
  if (!folder.problem.empty()) {
    endLaunch(program, LaunchFailure::NoPlaceToRun,
              folder.problem + "; no connection in it could be trusted");
  }
  const pid_t running = becomeSingleInstance(folder.path + "/NSMessagePort/" + program);
  if (running != 0) {
    endLaunch(program, LaunchFailure::RunsAlready,
              "running already, as process " + std::to_string(running) + ", which goes on");
  }
}

std::string displayProblem() {
  const char *const display = std::getenv("DISPLAY");
  if (display == nullptr || *display == '\0') return "there is no display; DISPLAY is not set";
  return std::string("the display \"") + display + "\" cannot be opened";
}

void endWithDisplay(const std::string &program) {
  programName() = program;
  XSetIOErrorHandler(endWithoutDisplay);
}

}  // namespace platform
