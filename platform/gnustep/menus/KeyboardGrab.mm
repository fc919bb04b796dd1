#import "platform/gnustep/menus/KeyboardGrab.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xlib.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

constinit platform::ReplacedMethod<NSWindow *()> platformKeyWindow;

NSWindow *grabbing = nil;  // not retained: the menu's tracking outlives the grab

/// The platform makes no events of keys while no window is key, and no menu can be key.
NSWindow *keyWindowOrMenu(id self, SEL selector) {
  return platformKeyWindow(self, selector) ?: grabbing;
}

Display *display() {
  return static_cast<Display *>([GSCurrentServer() serverDevice]);
}

}  // namespace

KeyboardGrab::~KeyboardGrab() {
  if (!isGrabbed_) return;
  grabbing = nil;
  XUngrabKeyboard(display(), CurrentTime);
  XFlush(display());
}

void KeyboardGrab::grabFor(NSWindow *menu) {
  if (isGrabbed_) return;
  const auto window = reinterpret_cast<Window>(
      [GSCurrentServer() windowDevice:static_cast<int>([menu windowNumber])]);
  const int result =
      XGrabKeyboard(display(), window, False, GrabModeAsync, GrabModeAsync, CurrentTime);
  if (result != GrabSuccess) return;
  isGrabbed_ = true;
  grabbing = menu;
}

@implementation NSApplication (KeysOfMenus)

+ (void)load {
  platformKeyWindow.install(self, @selector(keyWindow), keyWindowOrMenu);
}

@end
