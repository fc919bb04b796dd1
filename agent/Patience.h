#pragma once

#import <Foundation/Foundation.h>

#include <vector>

namespace agent {

/// How long a call of an agent operation is waited for: as long as the agent takes. A finite number
/// because platforms compute dates from it (about thirty years).
constexpr NSTimeInterval kAsLongAsItTakes = 1e9;

/// While one of these lives, no look-up of a named connection on this thread waits longer than the
/// given time for the other process. Without it a process that has registered its name and then
/// hangs would hold the look-up for ever: that is the platform's default.
///
/// A look-up goes over the thread's default connection, whose time-outs a new connection takes
/// over, or over an existing connection with the same receive port; so all of those are bounded,
/// and get their own time-outs back at the end.
class LookupBound {
 public:
  /// seconds: more than 0; anything less means that the look-up is not waited for.
  explicit LookupBound(NSTimeInterval seconds);
  ~LookupBound();
  LookupBound(const LookupBound &) = delete;
  LookupBound &operator=(const LookupBound &) = delete;

 private:
  struct Saved {
    NSConnection *connection;  // retained
    NSTimeInterval replyTimeout;
    NSTimeInterval requestTimeout;
  };
  std::vector<Saved> saved_;
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

/// Sets both time-outs of the proxy's connection, for the reading of replies between operations.
void setPatience(id proxy, NSTimeInterval seconds);

}  // namespace agent
