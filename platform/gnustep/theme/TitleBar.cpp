#include "platform/gnustep/theme/TitleBar.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <string_view>

void setTitleBarIsDark(void *display, unsigned long window, bool isDark) {
  constexpr std::string_view kDark = "dark";
  auto *const connection = static_cast<Display *>(display);
  const Atom property = XInternAtom(connection, "_GTK_THEME_VARIANT", False);
  if (!isDark) {
    XDeleteProperty(connection, window, property);
    return;
  }
  XChangeProperty(connection, window, property, XInternAtom(connection, "UTF8_STRING", False), 8,
                  PropModeReplace, reinterpret_cast<const unsigned char *>(kDark.data()),
                  static_cast<int>(kDark.size()));
}
