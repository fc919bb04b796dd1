#include "platform/gnustep/pasteboard/SelectionOwner.h"

#include <X11/Xlib.h>

namespace {

/// In whose name the request is made. One for each display, and never destroyed: an owner that does
/// reply to a request without a property must find it.
Window requestor(Display *display) {
  static Display *known = nullptr;
  static Window window = None;
  if (known != display) {
    known = display;
    window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
  }
  return window;
}

}  // namespace

void wakeSelectionOwner(Display *display, const char *selection) {
  if (display == nullptr) return;
  XConvertSelection(display, XInternAtom(display, selection, False),
                    XInternAtom(display, "TARGETS", False), None, requestor(display), CurrentTime);
  XFlush(display);
}
