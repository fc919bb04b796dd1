#include "platform/gnustep/windows/WindowOrder.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <memory>
#include <span>

namespace {

struct Free {
  void operator()(unsigned char *value) const { XFree(value); }
};

/// More windows than a display server has.
constexpr long kMostUnits = 0xffffff;

}  // namespace

std::vector<unsigned long> windowsFromFrontToBack(void *display) {
  auto *const connection = static_cast<Display *>(display);
  Atom type = None;
  int format = 0;
  unsigned long count = 0;
  unsigned long left = 0;
  unsigned char *value = nullptr;
  XGetWindowProperty(connection, DefaultRootWindow(connection),
                     XInternAtom(connection, "_NET_CLIENT_LIST_STACKING", False), 0, kMostUnits,
                     False, XA_WINDOW, &type, &format, &count, &left, &value);
  // There is something to be freed even where there is no window in it.
  const std::unique_ptr<unsigned char, Free> owned(value);
  if (type != XA_WINDOW || format != 32 || value == nullptr) return {};
  const std::span fromBack(reinterpret_cast<const Window *>(value), count);
  return {fromBack.rbegin(), fromBack.rend()};
}
