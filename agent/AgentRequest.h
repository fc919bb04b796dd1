#pragma once

#import "agent/ConnectionTimeouts.h"
#import "agent/ResultDictionary.h"

namespace agent {

/// How long the reply to an operation is waited for: as long as the agent takes. A finite number
/// because platforms compute dates from it (about thirty years).
constexpr NSTimeInterval kNoTimeout = 1e9;

/// Runs an exchange during which replies on the proxy's connection are waited for without a
/// time-out, and returns its result. Restores the connection's time-outs, after an exception too.
/// proxy: a distant object, or nil, which changes nothing. The caller keeps it alive.
template <class Exchange>
id withoutTimeout(id proxy, const Exchange &exchange) {
  NSConnection *const connection = [[connectionOf(proxy) retain] autorelease];
  if (connection == nil) return exchange();
  const Timeouts former = timeoutsOf(connection);
  return restoringAfterwards(
      [&]() -> id {
        setTimeouts(connection, {kNoTimeout, kNoTimeout});
        return exchange();
      },
      [&] { setTimeouts(connection, former); });
}

/// Runs an exchange with the agent (a call, or the reading of something that it sent) and returns
/// its result, or nil when the exchange raised a platform exception: the connection broke, the
/// agent refused the message, or what it sent cannot be read. To its callers all of that is the
/// same as no reply, so that the user gets the cannot-connect message instead of silence or a
/// crash. Besides the connection attempt this is the only place that catches such an exception.
template <class Exchange>
id nilOnException(Exchange exchange) {
  @try {
    return exchange();
  } @catch (NSException *) {
    return nil;
  }
}

/// Sends one operation to the agent, waits for the reply as long as the agent takes, and returns a
/// local copy of it as `copy` makes it, or nil when there was none. `operation` takes no argument
/// and sends the message. The caller keeps the proxy alive until this returns. Blocks the calling
/// thread.
template <class Operation>
NSDictionary *sendRequest(id proxy, Operation operation,
                          NSDictionary *(*copy)(id) = localCopyOfReply) {
  return nilOnException([&] {
    // Covers the copying, too: an agent that serves another client first is slow, not unreachable.
    return withoutTimeout(proxy, [&] { return copy(operation()); });
  });
}

}  // namespace agent
