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

/// The connection that an earlier look-up of this name made on this thread, or a new one; nil when
/// the name is not registered. Owned by the caller, and not kept by a pool: after a failed look-up
/// the next one makes a new connection.
NSConnection *newConnectionWithName(NSString *name) NS_RETURNS_RETAINED;

/// Runs lookUp and returns what it found. Meanwhile no look-up of a named connection on this thread
/// waits longer than the given time for the other process. Without this a process that has
/// registered its name and then hangs would block the look-up for ever: that is the platform's
/// default.
///
/// What both platforms document: rootProxyForConnectionWithRegisteredName:host: asks the connection
/// that connectionWithRegisteredName:host: answers for its root proxy, and waits for that as long
/// as the connection's own time-outs say; only this exchanges something with the other process. So
/// that connection gets the time-outs. It is the one that an earlier look-up of this thread made:
/// `known`, if the caller has it from that. Otherwise it is looked up first, and may be a new one;
/// this takes as long as the look-up itself.
///
/// The thread's default connection, the parent of a new one, gets them too: another process may
/// have taken the name over in between, and lookUp then makes another connection. The
/// Mac's documentation of initWithReceivePort:sendPort: says that a connection takes over the
/// settings of its parent; of GNUstep only the source says so. Restored at the end, after an
/// exception too; the connection to the other process stays bounded. (The connections of other
/// threads are left alone: they may end at any moment, and must end on their own thread.)
///
/// name: of the connection, on this machine. seconds: more than 0; anything less means that the
/// look-up does not wait. known: a connection of this thread to what has this name, or had it;
/// nil or an invalid one if there is none. May raise what a look-up of a name may raise.
template <class LookUp>
id boundingLookUp(NSString *name, NSTimeInterval seconds, NSConnection *known,
                  const LookUp &lookUp) {
  NSConnection *const parent = [[[NSConnection defaultConnection] retain] autorelease];
  const Timeouts former = timeoutsOf(parent);
  NSConnection *const connection = [known isValid] ? [known retain] : newConnectionWithName(name);
  return restoringAfterwards(
      [&] {
        setTimeouts(connection, {seconds, seconds});
        setTimeouts(parent, {seconds, seconds});
        return lookUp();
      },
      [&] {
        setTimeouts(parent, former);
        [connection release];
      });
}

}  // namespace agent
