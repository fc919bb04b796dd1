#pragma once

#import <Foundation/Foundation.h>

namespace agent {

/// While one of these lives, no look-up of a named connection on this thread waits longer than the
/// given time for the other process. Without it a process that has registered its name and then
/// hangs would block the look-up for ever: that is the platform's default.
///
/// A look-up makes a new connection, which takes its time-outs from the thread's default
/// connection, or returns the one that an earlier look-up made. Both are bounded. Restores the
/// default connection's time-outs at its end. (The connections of other threads are left alone:
/// they may end at any moment, and must end on their own thread.)
class LookupBound {
 public:
  /// seconds: more than 0; anything less means that the look-up does not wait. formerProxy: what an
  /// earlier look-up of the same name found, nil for nothing; its connection stays bounded.
  LookupBound(NSTimeInterval seconds, id formerProxy);
  ~LookupBound();
  LookupBound(const LookupBound &) = delete;
  LookupBound &operator=(const LookupBound &) = delete;

 private:
  NSConnection *defaultConnection_;  // retained
  NSTimeInterval replyTimeout_;
  NSTimeInterval requestTimeout_;
};

/// The connection of a distant object; nil for nil.
NSConnection *connectionOf(id proxy);

/// Sets both time-outs, for requests and for replies; nothing for nil.
void setTimeouts(NSConnection *connection, NSTimeInterval reply, NSTimeInterval request);

}  // namespace agent
