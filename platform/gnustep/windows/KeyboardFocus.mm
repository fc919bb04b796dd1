#import "platform/gnustep/windows/KeyboardFocus.h"

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>
#import <objc/runtime.h>

#include <X11/Xlib.h>

#import "platform/gnustep/windows/BackgroundApplication.h"
#include "platform/gnustep/windows/ServerTime.h"

@interface GSDisplayServer (PlatformPrivateFocus)
- (void)setLastTime:(Time)time;
@end

namespace {

using SetInputFocus = void (*)(id, SEL, int);
using HandleTakeFocus = NSEvent *(*)(id, SEL, XEvent, NSGraphicsContext *);

SetInputFocus platformsSetInputFocus;
HandleTakeFocus platformsHandleTakeFocus;

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
  platformsSetInputFocus(self, selector, window);
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
  NSEvent *const made = platformsHandleTakeFocus(self, selector, event, context);
  if (made == nil && ![NSApp isHidden] && isKeyWindow(self, event.xclient.window)) {
    // Does nothing where the platform has accepted the offer.
    [self setinputfocus:static_cast<int>([[NSApp keyWindow] windowNumber])];
  }
  return made;
}

template <class Function>
void replace(Method method, Function replacement, Function &former) {
  former = reinterpret_cast<Function>(
      method_setImplementation(method, reinterpret_cast<IMP>(replacement)));
}

}  // namespace

void installKeyboardFocus() {
  if (platformsSetInputFocus != nullptr) return;
  const Class server = NSClassFromString(@"XGServer");
  const Method setting = class_getInstanceMethod(server, @selector(setinputfocus:));
  const Method offer =
      class_getInstanceMethod(server, NSSelectorFromString(@"_handleTakeFocusAtom:forContext:"));
  if (setting == nullptr || offer == nullptr) return;
  replace(setting, setInputFocus, platformsSetInputFocus);
  replace(offer, handleTakeFocus, platformsHandleTakeFocus);
}
