#pragma once

#include <string>
#include <vector>

/// Queries to the window server of the private screen, over a connection of this process's own:
/// tests poll for windows, and starting a program for each query would take most of their time. Not
/// through the platform, which is what is tested. On the main thread. Throws std::runtime_error
/// when the server cannot be reached.

/// In pixels of the screen, from its upper left corner.
struct ScreenArea {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

/// A window that can be seen.
struct ServerWindow {
  /// As other programs write it.
  std::string number;
  /// In UTF-8.
  std::string title;
  ScreenArea area;
};

/// Those that can be seen, of the program with this name (the first part of WM_CLASS, which the
/// platform gives its windows; their process is not noted on them), in no particular order.
std::vector<ServerWindow> visibleWindowsOf(const std::string &program);

/// The number of the focused window, or of its top-level window; "" when there is none.
std::string focusedWindow();

/// Whether a program has taken the whole keyboard, as for an open menu, and the pointer with it.
/// Takes both itself for a moment when nobody has.
bool isInputGrabbed();

/// The colours in a part of the screen, four bytes a pixel (blue, green, red, nothing), row by row;
/// "" when a part of the area is not on the screen.
std::string pixelsIn(const ScreenArea &area);
