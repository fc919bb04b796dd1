#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xlib.h>

#import "platform/gnustep/menus/MenuTracking.h"
#import "platform/gnustep/runtime/MethodReplacement.h"
#include "platform/gnustep/windows/ServerTime.h"

namespace {

constinit platform::ReplacedMethod<void(NSMenu *, NSEvent *, NSView *, NSFont *)> platformPopUp;

constexpr double kMillisecondsInASecond = 1000;

Display *display() {
  return static_cast<Display *>([GSCurrentServer() serverDevice]);
}

/// When the press was, on the clock of events. One that a program has made may have no timestamp.
double secondsOf(NSEvent *press) {
  if ([press timestamp] > 0) return [press timestamp];
  return static_cast<double>(serverTime(display())) / kMillisecondsInASecond;
}

/// A program that has been asked for its menu by another one does not know.
bool isAnyButtonDown() {
  Window root = 0;
  Window child = 0;
  int unused = 0;
  unsigned int state = 0;
  XQueryPointer(display(), DefaultRootWindow(display()), &root, &child, &unused, &unused, &unused,
                &unused, &state);
  return (state & (Button1Mask | Button2Mask | Button3Mask)) != 0;
}

bool hasSubmenus(NSMenu *menu) {
  for (NSMenuItem *item in [menu itemArray]) {
    if ([item hasSubmenu]) return true;
  }
  return false;
}

}  // namespace

// The platform's context menus know the mouse only. On the Mac arrows, first letters, Return and
// Escape work in every open menu.
@implementation NSMenu (ContextMenu)

+ (void)load {
  platformPopUp.install(object_getClass(self),
                        @selector(popUpContextMenu:withEvent:forView:withFont:),
                        @selector(popUpTrackedContextMenu:withEvent:forView:withFont:));
}

+ (void)popUpTrackedContextMenu:(NSMenu *)menu
                      withEvent:(NSEvent *)event
                        forView:(NSView *)view
                       withFont:(NSFont *)font {
  if (menu == nil || hasSubmenus(menu)) {
    platformPopUp(self, _cmd, menu, event, view, font);
    return;
  }
  // The action may release the menu.
  [[menu retain] autorelease];
  [menu displayTransient];
  // The button that is down may be another than that of the event, which a program may have made.
  const NSInteger chosen =
      MenuTracking({.menu = menu,
                    .place = placeOnScreen(event),
                    .seconds = secondsOf(event),
                    .isPressed = isAnyButtonDown(),
                    .releases = NSLeftMouseUpMask | NSRightMouseUpMask | NSOtherMouseUpMask})
          .chosenItem();
  [menu closeTransient];
  if (chosen != NSNotFound) [menu performActionForItemAtIndex:chosen];
}

@end
