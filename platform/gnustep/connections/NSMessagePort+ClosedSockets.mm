#import <Foundation/Foundation.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

// A connection ends when the other process closes its socket, but GNUstep ends it only with the
// last socket to the same port. Where two threads have a connection to one process that dies, the
// first thread to notice would go on waiting for its reply, for up to five minutes after the other
// thread has noticed too. So the connection that a closed socket belongs to is invalidated by the
// thread that finds it closed, which is the one that waits.

@protocol ClosableHandle
- (BOOL)isValid;
- (NSPort *)recvPort;
- (NSPort *)sendPort;
@end

@interface NSMessagePort (ClosedSockets)
@end

namespace {

constinit platform::ReplacedMethod<void(void *, RunLoopEventType, void *, NSString *)>
    platformReceivedEvent;

void receivedEvent(id handle, SEL selector, void *data, RunLoopEventType type, void *extra,
                   NSString *mode) {
  if (type == ET_WDESC) {
    // The thread that writes is told by the return value of its own call.
    platformReceivedEvent(handle, selector, data, type, extra, mode);
    return;
  }
  id<ClosableHandle> const socket = [[handle retain] autorelease];
  NSPort *const receiving = [[[socket recvPort] retain] autorelease];
  NSPort *const sending = [[[socket sendPort] retain] autorelease];
  platformReceivedEvent(handle, selector, data, type, extra, mode);
  if ([socket isValid] || ![receiving isValid] || ![sending isValid]) return;
  [[NSConnection connectionWithReceivePort:receiving sendPort:sending] invalidate];
}

}  // namespace

@implementation NSMessagePort (ClosedSockets)

+ (void)load {
  platformReceivedEvent.install(objc_getClass("GSMessageHandle"),
                                @selector(receivedEvent:type:extra:forMode:), receivedEvent);
}

@end
