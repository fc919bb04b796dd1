#pragma once

/// Tells the window manager that a window wants to be asked before it is closed. The platform says
/// so for windows with a close button only, and a window manager that is told to close another one
/// (by Alt+F4, which works for every window) ends the whole program instead.
///
/// display, window: the X display connection and the window's number on it. May be repeated.
void acceptCloseRequests(void *display, unsigned long window);
