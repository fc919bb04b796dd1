#import <Foundation/Foundation.h>

#include <poll.h>

#include <charconv>
#include <string>
#include <string_view>

#import "platform/gnustep/runtime/MethodReplacement.h"
#include "platform/gnustep/workspace/ProcessTable.h"

// A proxy is released by a message to its process, for which the platform connects to the process
// again when that has exited meanwhile. The failure is harmless, but the platform logs it, and the
// Mac does not. The process may also be exiting: then the connection is reset before it has been
// accepted.

/// Not in the platform's headers.
@interface NSMessagePort (Name)
- (const unsigned char *)_name;
@end

@protocol MessageHandle
- (int)descriptor;
- (int)state;
- (void)setState:(int)state;
@end

@interface NSMessagePort (ExitedProcesses)
@end

namespace {

constinit platform::ReplacedMethod<BOOL(NSMessagePort *, NSDate *)> platformConnectToPort;
constinit platform::ReplacedMethod<void(void *, RunLoopEventType, void *, NSString *)>
    platformReceivedEvent;

/// The platform's states of a connection.
constexpr int kUnconnected = 0;
constexpr int kConnecting = 1;

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
  if (process > 0 && platform::hasExited(process)) return NO;
  return platformConnectToPort(handle, selector, port, limit);
}

bool isReset(int socket) {
  struct pollfd connection = {socket, 0, 0};
  return poll(&connection, 1, 0) == 1 && (connection.revents & (POLLERR | POLLHUP)) != 0;
}

void receivedEvent(id handle, SEL selector, void *data, RunLoopEventType type, void *extra,
                   NSString *mode) {
  id<MessageHandle> const connection = handle;
  if (type == ET_WDESC && [connection state] == kConnecting && isReset([connection descriptor])) {
    [connection setState:kUnconnected];
    return;
  }
  platformReceivedEvent(handle, selector, data, type, extra, mode);
}

}  // namespace

@implementation NSMessagePort (ExitedProcesses)

+ (void)load {
  Class const handle = objc_getClass("GSMessageHandle");
  platformConnectToPort.install(handle, sel_registerName("connectToPort:beforeDate:"),
                                connectToPort);
  platformReceivedEvent.install(handle, @selector(receivedEvent:type:extra:forMode:),
                                receivedEvent);
}

@end
