// open_window_client COMMANDS
//
// The plug-in's side of the benchmark of windows, as a process of its own. COMMANDS is a pipe: for
// each "s" that is read from it the send window is opened, for each "h" the share window. Prints
// "ready" when it can reach the application, and for each call "called TIME" when it has returned:
// when it began, in milliseconds of the monotonic clock.
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

#include "bench/support/Setting.h"

namespace {

double millisecondsNow() {
  const std::chrono::duration<double, std::milli> now =
      std::chrono::steady_clock::now().time_since_epoch();
  return now.count();
}

}  // namespace

int main(int argc, char *argv[]) {
  if (argc != 2) return 2;
  @autoreleasepool {
    const PluginClient client(@"ContextMenuPlugin");
    std::puts("ready");
    std::fflush(stdout);
    const int commands = open(argv[1], O_RDONLY);
    for (char command = 0; read(commands, &command, 1) == 1;) {
      const double start = millisecondsNow();
      if (command == 's') client.openSendWindow();
      if (command == 'h') client.openShareWindow();
      std::printf("called %.6f\n", start);
      std::fflush(stdout);
    }
  }
  _exit(0);
}
