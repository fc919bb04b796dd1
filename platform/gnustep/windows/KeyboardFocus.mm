#import "platform/gnustep/windows/KeyboardFocus.h"

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xlib.h>

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "platform/gnustep/windows/BackgroundApplication.h"
#include "platform/gnustep/windows/ServerTime.h"

@interface GSDisplayServer (PlatformPrivateFocus)
- (void)setLastTime:(Time)time;
@end

namespace {

constinit platform::ReplacedMethod<void(int)> platformSetInputFocus;
constinit platform::ReplacedMethod<NSEvent *(XEvent, NSGraphicsContext *)> platformHandleTakeFocus;

/// Whether the focus is being taken because the window manager has just offered it.
bool isOffered = false;

class Offer {
 public:
  Offer() { isOffered = true; }
  ~Offer() { isOffered = false; }
  Offer(const Offer &) = delete;
  Offer &operator=(const Offer &) = delete;
};

bool isSendingEvent() {
  return [static_cast<BackgroundApplication *>(NSApp) isSendingEvent];
}

/// The server ignores a request for the focus that bears an earlier time than the latest change of
/// the focus. The platform's requests bear the time of the latest event, for half a second. That is
/// right where the event is why the focus is asked for: the user may have turned to another program
/// since. Where another program or a timer makes a window key, it is the time of a key or click on
/// another window, which may have been closed since, and with its end the focus has changed.
void setInputFocus(id self, SEL selector, int window) {
  if (!isOffered && !isSendingEvent()) {
    [self setLastTime:serverTime([self serverDevice])];
  }
  platformSetInputFocus(self, selector, window);
}

bool isKeyWindow(GSDisplayServer *server, Window window) {
  const int number = static_cast<int>([[NSApp keyWindow] windowNumber]);
  return number != 0 && reinterpret_cast<Window>([server windowDevice:number]) == window;
}

/// The platform declines the first offer of the focus to a window that it has ordered in, because
/// not every such window is to have the keyboard. To decline it for the key window leaves the
/// window manager with nobody who has the focus, when the platform's own request came too early.
NSEvent *handleTakeFocus(id self, SEL selector, XEvent event, NSGraphicsContext *context) {
  const Offer offer;
  NSEvent *const made = platformHandleTakeFocus(self, selector, event, context);
  if (made == nil && ![NSApp isHidden] && isKeyWindow(self, event.xclient.window)) {
    // Does nothing where the platform has accepted the offer.
    [self setinputfocus:static_cast<int>([[NSApp keyWindow] windowNumber])];
  }
  return made;
}

}  // namespace

void installKeyboardFocus() {
  Class const server = NSClassFromString(@"XGServer");
  SEL const offer = NSSelectorFromString(@"_handleTakeFocusAtom:forContext:");
  if (![server instancesRespondToSelector:offer]) return;
  platformSetInputFocus.install(server, @selector(setinputfocus:), setInputFocus);
  platformHandleTakeFocus.install(server, offer, handleTakeFocus);
}
