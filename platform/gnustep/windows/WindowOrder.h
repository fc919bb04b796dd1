#pragma once

#include <vector>

/// The windows that the window manager shows, those of other applications included, from the front
/// to the back, as X window identifiers. It writes them down a moment after it was asked to show or
/// to close one. None without a window manager, or where it does not write them down.
///
/// display: a Display. On the thread that uses the display.
std::vector<unsigned long> windowsFromFrontToBack(void *display);
