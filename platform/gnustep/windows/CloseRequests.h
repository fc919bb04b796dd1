#pragma once

/// Adds WM_DELETE_WINDOW to the protocols of a window, so that the window manager sends a request
/// to close it. The platform does so for windows with a close button only, and to close another one
/// (by Alt+F4) the window manager kills the whole program.
///
/// display, window: a Display and the identifier of the window. May be repeated.
void acceptCloseRequests(void *display, unsigned long window);
