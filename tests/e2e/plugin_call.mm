// plugin-call ITEM: calls copyLinkToClipboard::: as the Finder-side plug-in does and ends when the
// call has returned. Prints "calling" first.
#import <Foundation/Foundation.h>

#include <cstdio>

#include <unistd.h>

#import "tests/e2e/RunningApplication.h"

int main(int argc, char *argv[]) {
  if (argc != 2) return 2;
  @autoreleasepool {
    // First: while the application serves nobody, the look-up waits as well.
    std::puts("calling");
    std::fflush(stdout);
    id<ContextMenuService> const service = RunningApplication::service();
    if (service == nil) return 1;
    // clang-format off: it takes the first anonymous argument for a part of the name.
    [service copyLinkToClipboard:[NSString stringWithUTF8String:argv[1]]:NO:NO];
    // clang-format on
  }
  // Without the end of the process's own objects: the leak checker would report what the platform
  // makes once for its first connection.
  _exit(0);
}
