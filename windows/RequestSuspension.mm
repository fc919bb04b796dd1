#import "windows/RequestSuspension.h"

RequestSuspension::RequestSuspension() {
  // The one on which this thread asks others, and under the application's name answers the
  // platform, is not meant: replies and the platform's own messages come there.
  NSPort *const asking = [[NSConnection defaultConnection] receivePort];
  for (NSConnection *connection in [NSConnection allConnections]) {
    // Those of other threads only ask, and have no root object.
    if ([connection rootObject] == nil || [connection receivePort] == asking) continue;
    if (![[connection requestModes] containsObject:NSDefaultRunLoopMode]) continue;
    paused_.push_back([connection retain]);
    [connection removeRequestMode:NSDefaultRunLoopMode];
  }
}

RequestSuspension::~RequestSuspension() {
  for (NSConnection *connection : paused_) {
    [connection addRequestMode:NSDefaultRunLoopMode];
    [connection release];
  }
}
