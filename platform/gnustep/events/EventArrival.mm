#import "platform/gnustep/events/EventArrival.h"

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xlib.h>
#include <sys/eventfd.h>

#include <cstdint>

#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

/// Readable after events that the run loop has not counted as input.
int handledEvents = -1;

constinit platform::ReplacedMethod<BOOL(BOOL *)> platformShouldBlock;

/// The run loop asks this before it waits. The platform reads the events that have arrived from the
/// connection and queues them for the application, but the run loop does not count them as input
/// and would wait for more before it returns.
BOOL runLoopShouldBlock(id self, SEL selector, BOOL *trigger) {
  const BOOL shouldBlock = platformShouldBlock(self, selector, trigger);
  if (!shouldBlock) eventfd_write(handledEvents, 1);
  return shouldBlock;
}

}  // namespace

/// The input that the run loop counts for such events.
@interface HandledEvents : NSObject <RunLoopEvents>
@end

@implementation HandledEvents

- (void)receivedEvent:(void *)data
                 type:(RunLoopEventType)type
                extra:(void *)extra
              forMode:(NSString *)mode {
  (void)data;
  (void)type;
  (void)extra;
  (void)mode;
  eventfd_t count = 0;
  eventfd_read(handledEvents, &count);
}

@end

void installEventArrival() {
  Class const server = NSClassFromString(@"XGServer");
  SEL const selector = NSSelectorFromString(@"runLoopShouldBlock:");
  if (platformShouldBlock.isInstalled() || ![server instancesRespondToSelector:selector]) return;
  handledEvents = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (handledEvents < 0) return;
  static HandledEvents *const source = [[HandledEvents alloc] init];
  void *const descriptor = reinterpret_cast<void *>(static_cast<std::intptr_t>(handledEvents));
  // The modes in which the platform reads events.
  for (NSString *mode in @[
         NSDefaultRunLoopMode, NSConnectionReplyMode, NSModalPanelRunLoopMode,
         NSEventTrackingRunLoopMode
       ]) {
    [[NSRunLoop currentRunLoop] addEvent:descriptor type:ET_RDESC watcher:source forMode:mode];
  }
  platformShouldBlock.install(server, selector, runLoopShouldBlock);
}
