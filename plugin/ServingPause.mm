#import "plugin/ServingPause.h"

ServingPause::ServingPause(id rootObject) {
  // Connections that only ask have no root object, and are not meant.
  if (rootObject == nil) return;
  for (NSConnection *connection in [NSConnection allConnections]) {
    if ([connection rootObject] != rootObject) continue;
    if (![[connection requestModes] containsObject:NSDefaultRunLoopMode]) continue;
    paused_.push_back([connection retain]);
    [connection removeRequestMode:NSDefaultRunLoopMode];
  }
}

ServingPause::~ServingPause() {
  for (NSConnection *connection : paused_) {
    [connection addRequestMode:NSDefaultRunLoopMode];
    [connection release];
  }
}
