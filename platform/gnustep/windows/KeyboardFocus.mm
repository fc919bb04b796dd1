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

/// Whether the focus is being set in reply to WM_TAKE_FOCUS.
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

/// The server ignores a request for the focus with an earlier timestamp than the latest change of
/// the focus. The platform uses the timestamp of the latest event, for half a second. That is right
/// while an event is being handled, because the user may have changed to another program since.
/// When a request of another process or a timer makes a window key, it is the timestamp of a key or
/// click on another window, which may have been closed since, and the focus has changed with that.
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

/// The platform ignores the first WM_TAKE_FOCUS for a window that it has ordered in, because not
/// every such window is to become key. For the key window no window has the focus then, if the
/// platform's own request was ignored.
NSEvent *handleTakeFocus(id self, SEL selector, XEvent event, NSGraphicsContext *context) {
  const Offer offer;
  NSEvent *const made = platformHandleTakeFocus(self, selector, event, context);
  if (made == nil && ![NSApp isHidden] && isKeyWindow(self, event.xclient.window)) {
    // No effect where the platform has set the focus.
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
