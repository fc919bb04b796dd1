#import "agent/Patience.h"

namespace agent {

LookupBound::LookupBound(NSTimeInterval seconds) {
  NSPort *const receivePort = [[NSConnection defaultConnection] receivePort];
  for (NSConnection *connection in [NSConnection allConnections]) {
    // Other threads' connections have other receive ports and must be left alone.
    if ([connection receivePort] != receivePort) continue;
    saved_.push_back({[connection retain], [connection replyTimeout], [connection requestTimeout]});
    [connection setReplyTimeout:seconds];
    [connection setRequestTimeout:seconds];
  }
}

LookupBound::~LookupBound() {
  for (const Saved &saved : saved_) {
    [saved.connection setReplyTimeout:saved.replyTimeout];
    [saved.connection setRequestTimeout:saved.requestTimeout];
    [saved.connection release];
  }
}

UnboundedReply::UnboundedReply(id proxy)
    : connection_([[static_cast<NSDistantObject *>(proxy) connectionForProxy] retain]) {
  if (connection_ == nil) return;
  replyTimeout_ = [connection_ replyTimeout];
  requestTimeout_ = [connection_ requestTimeout];
  [connection_ setReplyTimeout:kAsLongAsItTakes];
  [connection_ setRequestTimeout:kAsLongAsItTakes];
}

UnboundedReply::~UnboundedReply() {
  if (connection_ == nil) return;
  [connection_ setReplyTimeout:replyTimeout_];
  [connection_ setRequestTimeout:requestTimeout_];
  [connection_ release];
}

void setPatience(id proxy, NSTimeInterval seconds) {
  NSConnection *const connection = [static_cast<NSDistantObject *>(proxy) connectionForProxy];
  [connection setReplyTimeout:seconds];
  [connection setRequestTimeout:seconds];
}

}  // namespace agent
