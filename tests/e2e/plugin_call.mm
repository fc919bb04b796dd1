// plugin-call [--leave] ITEM
// plugin-call [--leave] send ITEM NAME IS_MYDOCS IS_FOLDER TAB IS_FILE_ID
// plugin-call [--leave] share ITEM NAME UNUSED TAB IS_FILE_ID
//
// Makes one call as the Finder-side plug-in does and ends when it has returned: of
// copyLinkToClipboard:::, or of the operation that opens a window. Flags and positions are numbers;
// "@nil" is no string. With --leave it ends as soon as the call has been sent.
//
// Prints "calling" first.
#import <Foundation/Foundation.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

#include <unistd.h>

#import "tests/e2e/VendedService.h"

namespace {

using Arguments = std::vector<const char *>;

NSString *stringFrom(const char *argument) {
  if (std::string_view(argument) == "@nil") return nil;
  return [NSString stringWithUTF8String:argument];
}

BOOL byteFrom(const char *argument) {
  return static_cast<BOOL>(std::atoi(argument));
}

/// Returns whether the arguments are those of an operation.
bool call(id<ContextMenuService> service, const Arguments &arguments) {
  const std::string_view operation = arguments.front();
  // clang-format off
  if (operation == "send" && arguments.size() == 7) {
    [service LaunchSendCopyLinkTab:stringFrom(arguments[1])
                                  :stringFrom(arguments[2])
                                  :byteFrom(arguments[3])
                                  :byteFrom(arguments[4])
                                  :byteFrom(arguments[5])
                                  :byteFrom(arguments[6])];
    return true;
  }
  if (operation == "share" && arguments.size() == 6) {
    [service LaunchShareFolderTab:stringFrom(arguments[1])
                                 :stringFrom(arguments[2])
                                 :byteFrom(arguments[3])
                                 :byteFrom(arguments[4])
                                 :byteFrom(arguments[5])];
    return true;
  }
  if (arguments.size() == 1) {
    [service copyLinkToClipboard:stringFrom(arguments[0]):NO:NO];
    return true;
  }
  // clang-format on
  return false;
}

/// Sends the call and does not wait for the reply: the call ends with a time-out.
bool callAndLeave(id service, const Arguments &arguments) {
  [[service connectionForProxy] setReplyTimeout:0];
  @try {
    return call(service, arguments);
  } @catch (NSException *exception) {
    return [[exception name] isEqualToString:NSPortTimeoutException];
  }
}

int run(Arguments arguments) {
  const bool leaves = !arguments.empty() && std::string_view(arguments.front()) == "--leave";
  if (leaves) arguments.erase(arguments.begin());
  if (arguments.empty()) return 2;
  @autoreleasepool {
    id const service = vendedService();
    if (service == nil) return 1;
    return (leaves ? callAndLeave(service, arguments) : call(service, arguments)) ? 0 : 2;
  }
}

}  // namespace

int main(int argc, char *argv[]) {
  // First: while the application serves no calls, the look-up waits as well.
  std::puts("calling");
  std::fflush(stdout);
  // Without the process's destructors: the leak checker would report what the platform allocates
  // once for its first connection.
  _exit(run(Arguments(argv + 1, argv + argc)));
}
