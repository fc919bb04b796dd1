#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#include <charconv>
#include <string>
#include <string_view>

#include "platform/gnustep/ProcessTable.h"

// What was received from a process is released by a message to it, for which the platform connects
// to its port once more when the process has ended meanwhile. That fails, which does no harm, but
// the platform writes a line of its own into the log, which says nothing to anybody. On the Mac
// there is none.

/// Not in the platform's headers.
@interface NSMessagePort (Name)
- (const unsigned char *)_name;
@end

@interface NSMessagePort (EndedProcesses)
@end

namespace {

using ConnectToPort = BOOL (*)(id, SEL, NSMessagePort *, NSDate *);
ConnectToPort platformConnectToPort = nullptr;

/// The process that listens at a port, whose socket is named ".../PROCESS.NUMBER"; 0 if there is no
/// such name.
pid_t processOf(NSMessagePort *port) {
  const auto *const name = reinterpret_cast<const char *>([port _name]);
  if (name == nullptr) return 0;
  std::string_view socket = name;
  socket.remove_prefix(socket.rfind('/') + 1);
  pid_t process = 0;
  std::from_chars(socket.data(), socket.data() + socket.size(), process);
  return process;
}

BOOL connectToPort(id handle, SEL selector, NSMessagePort *port, NSDate *limit) {
  const pid_t process = processOf(port);
  if (process > 0 && platform::hasEnded(process)) return NO;
  return platformConnectToPort(handle, selector, port, limit);
}

}  // namespace

@implementation NSMessagePort (EndedProcesses)

+ (void)load {
  const Method method = class_getInstanceMethod(objc_getClass("GSMessageHandle"),
                                                sel_registerName("connectToPort:beforeDate:"));
  if (method == nullptr) return;
  platformConnectToPort = reinterpret_cast<ConnectToPort>(
      method_setImplementation(method, reinterpret_cast<IMP>(connectToPort)));
}

@end
