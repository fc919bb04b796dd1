#pragma once

/// Sets the current look (see DesktopLook.h) from what can be read at once: the environment and
/// GTK's settings file. To be called before the first window is drawn. Main thread.
void adoptDesktopLook();

/// Follows the desktop from now on: asks its portal and its XSETTINGS manager, waits for neither,
/// and sets the current look and calls `lookChanged` whenever it is another one, in the default
/// mode of the run loop or that of modal panels. Later calls have no effect. Main thread.
void followDesktopLook(void (*lookChanged)());
