#import "windows/RequestSuspension.h"

RequestSuspension::RequestSuspension() {
  // Not the connection on which this thread sends its own requests: their replies, and the
  // platform's messages to the application, arrive there.
  NSPort *const asking = [[NSConnection defaultConnection] receivePort];
  for (NSConnection *connection in [NSConnection allConnections]) {
    // The connections of other threads have no root object: they only send requests.
    if ([connection rootObject] == nil || [connection receivePort] == asking) continue;
    if (![[connection requestModes] containsObject:NSDefaultRunLoopMode]) continue;
    suspended_.push_back([connection retain]);
    [connection removeRequestMode:NSDefaultRunLoopMode];
  }
}

RequestSuspension::~RequestSuspension() {
  for (NSConnection *connection : suspended_) {
    [connection addRequestMode:NSDefaultRunLoopMode];
    [connection release];
  }
}
