#pragma once

#import <Foundation/Foundation.h>

/// While one of these lives, the connections that this thread makes by looking up names wait no
/// longer than this for the other process, in the look-up and for as long as they last: they take
/// over the time-outs of the thread's default connection. The platform's own have no end, so that a
/// process which has registered its name and hangs holds up whoever looks for it.
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
