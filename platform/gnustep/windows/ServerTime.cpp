#include "platform/gnustep/windows/ServerTime.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

unsigned long serverTime(void *display) {
  auto *const connection = static_cast<Display *>(display);
  XSetWindowAttributes attributes = {};
  attributes.event_mask = PropertyChangeMask;
  // The server sends its time in events only, and no other code expects events of this window.
  const Window window = XCreateWindow(connection, DefaultRootWindow(connection), 0, 0, 1, 1, 0, 0,
                                      InputOnly, nullptr, CWEventMask, &attributes);
  XChangeProperty(connection, window, XA_WM_NAME, XA_STRING, 8, PropModeReplace, nullptr, 0);
  XEvent change;
  XWindowEvent(connection, window, PropertyChangeMask, &change);
  XDestroyWindow(connection, window);
  return change.xproperty.time;
}
