#include "platform/gnustep/windows/ServerTime.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

unsigned long serverTime(void *display) {
  auto *const connection = static_cast<Display *>(display);
  XSetWindowAttributes attributes = {};
  attributes.event_mask = PropertyChangeMask;
  // The time is only told with events, and this one, unlike those of a window on the screen, is
  // nobody else's.
  const Window window = XCreateWindow(connection, DefaultRootWindow(connection), 0, 0, 1, 1, 0, 0,
                                      InputOnly, nullptr, CWEventMask, &attributes);
  XChangeProperty(connection, window, XA_WM_NAME, XA_STRING, 8, PropModeReplace, nullptr, 0);
  XEvent change;
  XWindowEvent(connection, window, PropertyChangeMask, &change);
  XDestroyWindow(connection, window);
  return change.xproperty.time;
}
