#import "agent/ConnectionTimeouts.h"

namespace agent {

namespace {

void setTimeouts(NSConnection *connection, NSTimeInterval reply, NSTimeInterval request) {
  [connection setReplyTimeout:reply];
  [connection setRequestTimeout:request];
}

NSConnection *connectionOf(id proxy) {
  return [static_cast<NSDistantObject *>(proxy) connectionForProxy];
}

}  // namespace

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

UnboundedReply::UnboundedReply(id proxy) : connection_([connectionOf(proxy) retain]) {
  if (connection_ == nil) return;
  replyTimeout_ = [connection_ replyTimeout];
  requestTimeout_ = [connection_ requestTimeout];
  setTimeouts(connection_, kNoTimeout, kNoTimeout);
}

UnboundedReply::~UnboundedReply() {
  setTimeouts(connection_, replyTimeout_, requestTimeout_);
  [connection_ release];
}

void setConnectionTimeouts(id proxy, NSTimeInterval seconds) {
  setTimeouts(connectionOf(proxy), seconds, seconds);
}

}  // namespace agent
