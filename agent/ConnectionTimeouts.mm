#import "agent/ConnectionTimeouts.h"

namespace agent {

NSConnection *connectionOf(id proxy) {
  return [static_cast<NSDistantObject *>(proxy) connectionForProxy];
}

void setTimeouts(NSConnection *connection, NSTimeInterval reply, NSTimeInterval request) {
  [connection setReplyTimeout:reply];
  [connection setRequestTimeout:request];
}

LookupBound::LookupBound(NSTimeInterval seconds, id formerProxy)
    : defaultConnection_([[NSConnection defaultConnection] retain]),
      replyTimeout_([defaultConnection_ replyTimeout]),
      requestTimeout_([defaultConnection_ requestTimeout]) {
  setTimeouts(defaultConnection_, seconds, seconds);
  setTimeouts(connectionOf(formerProxy), seconds, seconds);
}

LookupBound::~LookupBound() {
  setTimeouts(defaultConnection_, replyTimeout_, requestTimeout_);
  [defaultConnection_ release];
}

}  // namespace agent
