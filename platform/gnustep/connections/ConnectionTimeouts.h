#pragma once

#import <Foundation/Foundation.h>

/// Sets the time-outs of the thread's default connection, in seconds, while it is in scope.
/// Connections that the thread makes by looking up a name meanwhile inherit them for good, and the
/// look-up itself is bounded by them. Without it the platform waits for ever for a process that has
/// registered its name and hangs.
class ConnectionTimeouts {
 public:
  explicit ConnectionTimeouts(NSTimeInterval seconds)
      : connection_([[NSConnection defaultConnection] retain]),
        reply_([connection_ replyTimeout]),
        request_([connection_ requestTimeout]) {
    [connection_ setReplyTimeout:seconds];
    [connection_ setRequestTimeout:seconds];
  }
  ~ConnectionTimeouts() {
    [connection_ setReplyTimeout:reply_];
    [connection_ setRequestTimeout:request_];
    [connection_ release];
  }
  ConnectionTimeouts(const ConnectionTimeouts &) = delete;
  ConnectionTimeouts &operator=(const ConnectionTimeouts &) = delete;

 private:
  NSConnection *connection_;  // retained
  NSTimeInterval reply_;
  NSTimeInterval request_;
};
