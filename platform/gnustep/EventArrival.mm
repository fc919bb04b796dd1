#import "platform/gnustep/EventArrival.h"

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>
#import <objc/runtime.h>

#include <X11/Xlib.h>

namespace {

bool isInstalled = false;

/// Has the server send something to this program, so that the connection becomes readable. The
/// platform knows no such window and drops the message.
void wake(Display *display) {
  static const Window window = XCreateWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0,
                                             InputOnly, nullptr, 0, nullptr);
  XEvent message = {};
  message.xclient.type = ClientMessage;
  message.xclient.window = window;
  message.xclient.message_type = XInternAtom(display, "WAKE", False);
  message.xclient.format = 32;
  XSendEvent(display, window, False, NoEventMask, &message);
  XFlush(display);
}

/// Takes the place of the platform's answer to the run loop's question whether it has to wait. The
/// platform reads what has arrived and answers that it has not. The run loop then has the events
/// handled, which puts them into the application's queue, but does not count that as input: it
/// waits for more before it returns to whoever wanted an event.
///
/// Here it always waits, for the connection to be readable, and is helped to that where events have
/// been read already. One that arrives after this look at them makes it so by itself.
BOOL runLoopShouldBlock(id self, SEL selector, BOOL *trigger) {
  (void)selector;
  auto *const display = static_cast<Display *>([self serverDevice]);
  if (XPending(display) > 0) wake(display);
  *trigger = YES;
  return YES;
}

}  // namespace

void installEventArrival() {
  if (isInstalled) return;
  const Method method = class_getInstanceMethod(NSClassFromString(@"XGServer"),
                                                NSSelectorFromString(@"runLoopShouldBlock:"));
  if (method == nullptr) return;
  isInstalled = true;
  method_setImplementation(method, reinterpret_cast<IMP>(runLoopShouldBlock));
}
