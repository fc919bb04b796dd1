#pragma once

#import "agent/ConnectionTimeouts.h"
#import "agent/ResultDictionary.h"

namespace agent {

/// Runs an exchange with the agent (a call, or the reading of something that it sent) and answers
/// its result, or nil when the exchange raised a platform exception: the connection broke, the
/// agent refused the message, or what it sent cannot be read. To its callers all of that is the
/// same as no reply, so that the user gets the cannot-connect message instead of silence or a
/// crash. Apart from the connection attempt this is the one place that decides so.
template <class Exchange>
id nilOnException(Exchange exchange) {
  @try {
    return exchange();
  } @catch (NSException *) {
    return nil;
  }
}

/// Sends one operation to the agent, waits for the answer as long as the agent takes, and answers a
/// local copy of the reply as `read` makes it, or nil when there was none. `operation` takes no
/// argument and sends the message. The caller keeps the proxy alive meanwhile. Blocks the calling
/// thread.
template <class Operation>
NSDictionary *sendRequest(id proxy, Operation operation,
                          NSDictionary *(*read)(id) = localCopyOfReply) {
  return nilOnException([&]() -> id {
    // Over the reading too: an agent that serves somebody else in between must not turn its own
    // good answer into none.
    const UnboundedReply noTimeout(proxy);
    return read(operation());
  });
}

}  // namespace agent
