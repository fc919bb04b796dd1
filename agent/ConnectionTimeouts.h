#pragma once

#import <Foundation/Foundation.h>

#import "agent/RestoringAfterwards.h"

namespace agent {

/// How long a connection waits for a reply, and for the sending of a request, in seconds.
struct Timeouts {
  NSTimeInterval reply;
  NSTimeInterval request;
};

/// The connection of a distant object; nil for nil.
NSConnection *connectionOf(id proxy);

/// connection: not nil.
Timeouts timeoutsOf(NSConnection *connection);

/// Nothing for nil.
void setTimeouts(NSConnection *connection, const Timeouts &timeouts);

/// Runs lookUp and returns what it found. Meanwhile no look-up of a named connection on this thread
/// waits longer than the given time for the other process. Without this a process that has
/// registered its name and then hangs would block the look-up for ever: that is the platform's
/// default.
///
/// A look-up makes a new connection, which takes its time-outs from the thread's default
/// connection, or returns the one that an earlier look-up made. Both are bounded. Restores the
/// default connection's time-outs, after an exception too. (The connections of other threads are
/// left alone: they may end at any moment, and must end on their own thread.)
///
/// seconds: more than 0; anything less means that the look-up does not wait. formerProxy: what an
/// earlier look-up of the same name found, nil for nothing; its connection stays bounded.
template <class LookUp>
id boundingLookUp(NSTimeInterval seconds, id formerProxy, const LookUp &lookUp) {
  NSConnection *const connection = [[[NSConnection defaultConnection] retain] autorelease];
  const Timeouts former = timeoutsOf(connection);
  return restoringAfterwards(
      [&] {
        setTimeouts(connection, {seconds, seconds});
        setTimeouts(connectionOf(formerProxy), {seconds, seconds});
        return lookUp();
      },
      [&] { setTimeouts(connection, former); });
}

}  // namespace agent
