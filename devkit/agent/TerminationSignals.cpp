#include "devkit/agent/TerminationSignals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>

namespace devkit {
namespace {

int writingEnd = -1;

void onEndingSignal(int) {
  const int saved = errno;
  // A full pipe is readable already, so a failed write does not matter.
  [[maybe_unused]] const auto written = write(writingEnd, "", 1);
  errno = saved;
}

}  // namespace

int routeTerminationSignals() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return -1;
  writingEnd = ends[1];
  struct sigaction action = {};
  action.sa_handler = onEndingSignal;
  action.sa_flags = SA_RESTART;
  sigaction(SIGTERM, &action, nullptr);
  sigaction(SIGINT, &action, nullptr);
  return ends[0];
}

}  // namespace devkit
