#import "windows/RequestSuspension.h"

void suspendRequests(NSMutableArray *suspended) {
  // Not the connection on which this thread sends its own requests: their replies, and the
  // platform's messages to the application, arrive there.
  NSPort *const asking = [[NSConnection defaultConnection] receivePort];
  for (NSConnection *connection in [NSConnection allConnections]) {
    // The connections of other threads have no root object: they only send requests.
    if ([connection rootObject] == nil || [connection receivePort] == asking) continue;
    if (![[connection requestModes] containsObject:NSDefaultRunLoopMode]) continue;
    // The listening ones and one for each client.
    [suspended addObject:connection];
    [connection removeRequestMode:NSDefaultRunLoopMode];
  }
}

void resumeRequests(NSArray *suspended) {
  for (NSConnection *connection in suspended) [connection addRequestMode:NSDefaultRunLoopMode];
}
