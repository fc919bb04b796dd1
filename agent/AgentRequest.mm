#import "agent/AgentRequest.h"

#import "agent/ConnectionTimeouts.h"

namespace agent {

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

}  // namespace agent
