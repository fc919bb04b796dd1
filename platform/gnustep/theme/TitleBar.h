#pragma once

/// Asks the window manager for a dark or a light title bar, by the property that those have agreed
/// on that draw title bars with GTK's themes; others ignore it. May be repeated.
///
/// display, window: a Display and the identifier of the window.
void setTitleBarIsDark(void *display, unsigned long window, bool isDark);
