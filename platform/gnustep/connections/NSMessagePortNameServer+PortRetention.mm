#import <Foundation/Foundation.h>

#include <mutex>

#import "platform/gnustep/runtime/MethodReplacement.h"

// All threads of a process share one port object for a name. When its last user is a background
// thread that exits, the port is removed from that thread's run loop only, and the main run loop
// keeps a dangling pointer to it. So a port that a background thread has looked up is retained for
// good: 1 KiB for each connection of a background thread.

@interface NSMessagePortNameServer (PortRetention)
@end

namespace {

constinit platform::ReplacedMethod<NSPort *(NSString *, NSString *)> platformPortForName;

NSMutableSet *retainedPorts() {
  static NSMutableSet *const ports = [[NSMutableSet alloc] init];
  return ports;
}

std::mutex &retainedPortsLock() {
  static std::mutex *const lock = new std::mutex;
  return *lock;
}

NSPort *portForName(id server, SEL selector, NSString *name, NSString *host) {
  NSPort *const port = platformPortForName(server, selector, name, host);
  if (port != nil && ![NSThread isMainThread]) {
    const std::lock_guard<std::mutex> guard(retainedPortsLock());
    [retainedPorts() addObject:port];
  }
  return port;
}

}  // namespace

@implementation NSMessagePortNameServer (PortRetention)

+ (void)load {
  platformPortForName.install(self, @selector(portForName:onHost:), portForName);
}

@end
