#pragma once

#import <Foundation/Foundation.h>

namespace agent {

/// How long a call of an agent operation is waited for: as long as the agent takes. A finite number
/// because platforms compute dates from it (about thirty years).
constexpr NSTimeInterval kNoTimeout = 1e9;

/// While one of these lives, no look-up of a named connection on this thread waits longer than the
/// given time for the other process. Without it a process that has registered its name and then
/// hangs would hold the look-up for ever: that is the platform's default.
///
/// A look-up makes a new connection, which takes over the time-outs of the thread's default
/// connection, or finds the one that an earlier look-up made. Both are bounded; the default
/// connection gets its own time-outs back at the end. (Not done over all connections of the
/// process: those of another thread may end at any moment, and must end there.)
class LookupBound {
 public:
  /// seconds: more than 0; anything less means that the look-up is not waited for. formerProxy:
  /// what an earlier look-up of the same name found, nil for nothing; its connection stays bounded.
  LookupBound(NSTimeInterval seconds, id formerProxy);
  ~LookupBound();
  LookupBound(const LookupBound &) = delete;
  LookupBound &operator=(const LookupBound &) = delete;

 private:
  NSConnection *defaultConnection_;  // retained
  NSTimeInterval replyTimeout_;
  NSTimeInterval requestTimeout_;
};

/// While one of these lives, replies on the proxy's connection are waited for as long as they take;
/// then the connection has its former patience back.
class UnboundedReply {
 public:
  /// proxy: a distant object, or nil (then nothing happens). Not retained: the caller holds it.
  explicit UnboundedReply(id proxy);
  ~UnboundedReply();
  UnboundedReply(const UnboundedReply &) = delete;
  UnboundedReply &operator=(const UnboundedReply &) = delete;

 private:
  NSConnection *connection_;  // retained
  NSTimeInterval replyTimeout_ = 0;
  NSTimeInterval requestTimeout_ = 0;
};

/// Sets both time-outs of the proxy's connection: its patience between operations.
void setConnectionTimeouts(id proxy, NSTimeInterval seconds);

}  // namespace agent
