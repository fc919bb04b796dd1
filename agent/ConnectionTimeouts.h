#pragma once

#import <Foundation/Foundation.h>

namespace agent {

/// While one of these lives, no look-up of a named connection on this thread waits longer than the
/// given time for the other process. Without it a process that has registered its name and then
/// hangs would block the look-up for ever: that is the platform's default.
///
/// What both platforms document: rootProxyForConnectionWithRegisteredName:host: asks the connection
/// that connectionWithRegisteredName:host: answers for its root proxy, and waits for that as long
/// as the connection's own time-outs say; only this exchanges something with the other process. So
/// that connection is looked up first, and gets the time-outs. It is the one that an earlier
/// look-up of this thread made, or a new one.
///
/// The thread's default connection, the parent of a new one, gets them too: another process may
/// have taken the name over before the second look-up, which then makes another connection. The
/// Mac's documentation says that a connection takes over the settings of its parent; of GNUstep
/// only the source says so. Restored at the end; the connection to the other process stays bounded.
/// (The connections of other threads are left alone: they may end at any moment, and must end on
/// their own thread.)
class LookupBound {
 public:
  /// name: of the connection, on this machine. seconds: more than 0; anything less means that the
  /// look-up does not wait. May raise what a look-up of a name may raise.
  LookupBound(NSString *name, NSTimeInterval seconds);
  ~LookupBound();
  LookupBound(const LookupBound &) = delete;
  LookupBound &operator=(const LookupBound &) = delete;

 private:
  NSConnection *connection_;         // retained; nil when the name is not registered
  NSConnection *defaultConnection_;  // retained
  NSTimeInterval replyTimeout_;
  NSTimeInterval requestTimeout_;
};

/// The connection of a distant object; nil for nil.
NSConnection *connectionOf(id proxy);

/// Sets both time-outs, for requests and for replies; nothing for nil.
void setTimeouts(NSConnection *connection, NSTimeInterval reply, NSTimeInterval request);

}  // namespace agent
