#pragma once

#include <span>
#include <string_view>

#include "platform/gnustep/desktop/DesktopLook.h"

/// The settings of GTK, which desktops without a portal have. What cannot be read says nothing. Any
/// thread.
namespace platform {

/// What GTK_THEME holds, a theme's name with or without ":dark"; null where it is not set. It
/// overrides the setting for the dark variant, as in GTK.
LookSettings settingsOfThemeVariable(const char *value);

/// The contents of a settings.ini.
LookSettings settingsOfIniFile(std::string_view text);

/// The property that an XSETTINGS manager has for its settings.
LookSettings settingsOfXSettings(std::span<const unsigned char> bytes);

/// The user's settings.ini: gtk-3.0/settings.ini in XDG_CONFIG_HOME or ~/.config. Does not block,
/// whatever is there.
LookSettings settingsOfUsersIniFile();

}  // namespace platform
