#import "agent/ConnectionTimeouts.h"

namespace agent {

NSConnection *connectionOf(id proxy) {
  return [static_cast<NSDistantObject *>(proxy) connectionForProxy];
}

Timeouts timeoutsOf(NSConnection *connection) {
  return {[connection replyTimeout], [connection requestTimeout]};
}

void setTimeouts(NSConnection *connection, const Timeouts &timeouts) {
  [connection setReplyTimeout:timeouts.reply];
  [connection setRequestTimeout:timeouts.request];
}

NSConnection *newConnectionWithName(NSString *name) {
  @autoreleasepool {
    return [[NSConnection connectionWithRegisteredName:name host:nil] retain];
  }
}

}  // namespace agent
