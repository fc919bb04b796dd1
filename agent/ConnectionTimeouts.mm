#import "agent/ConnectionTimeouts.h"

namespace agent {
namespace {

/// Retained, and not kept by a pool: after a failed look-up the next one makes a new connection.
NSConnection *newConnectionWithName(NSString *name) NS_RETURNS_RETAINED;
NSConnection *newConnectionWithName(NSString *name) {
  @autoreleasepool {
    return [[NSConnection connectionWithRegisteredName:name host:nil] retain];
  }
}

}  // namespace

NSConnection *connectionOf(id proxy) {
  return [static_cast<NSDistantObject *>(proxy) connectionForProxy];
}

void setTimeouts(NSConnection *connection, NSTimeInterval reply, NSTimeInterval request) {
  [connection setReplyTimeout:reply];
  [connection setRequestTimeout:request];
}

LookupBound::LookupBound(NSString *name, NSTimeInterval seconds)
    : connection_(newConnectionWithName(name)),
      defaultConnection_([[NSConnection defaultConnection] retain]),
      replyTimeout_([defaultConnection_ replyTimeout]),
      requestTimeout_([defaultConnection_ requestTimeout]) {
  setTimeouts(connection_, seconds, seconds);
  setTimeouts(defaultConnection_, seconds, seconds);
}

LookupBound::~LookupBound() {
  setTimeouts(defaultConnection_, replyTimeout_, requestTimeout_);
  [defaultConnection_ release];
  [connection_ release];
}

}  // namespace agent
