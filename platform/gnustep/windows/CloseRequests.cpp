#include "platform/gnustep/windows/CloseRequests.h"

#include <X11/Xlib.h>

#include <algorithm>
#include <vector>

void acceptCloseRequests(void *display, unsigned long window) {
  auto *const connection = static_cast<Display *>(display);
  Atom *atoms = nullptr;
  int count = 0;
  std::vector<Atom> protocols;
  if (XGetWMProtocols(connection, window, &atoms, &count) != 0) {
    protocols.assign(atoms, atoms + count);
    XFree(atoms);
  }
  const Atom closing = XInternAtom(connection, "WM_DELETE_WINDOW", False);
  if (std::find(protocols.begin(), protocols.end(), closing) != protocols.end()) return;
  protocols.push_back(closing);
  XSetWMProtocols(connection, window, protocols.data(), static_cast<int>(protocols.size()));
}
