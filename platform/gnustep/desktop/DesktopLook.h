#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

/// How the user wants windows to look, from what the desktop's settings say.
namespace platform {

struct DesktopLook {
  bool isDark = false;
  /// Whether things may move that need not.
  bool isAnimated = true;

  bool operator==(const DesktopLook &) const = default;
};

/// What one place of settings says; what it says nothing of is absent.
struct LookSettings {
  std::optional<bool> isDark;
  /// Whether GTK takes the dark variant of its theme.
  std::optional<bool> prefersDarkVariant;
  /// The name of GTK's theme.
  std::optional<std::string> theme;
  std::optional<bool> isAnimated;

  bool operator==(const LookSettings &) const = default;
};

/// Whether a theme of GTK is dark, by its name, as "Yaru-dark" and "Adwaita:dark" are.
bool isDarkTheme(std::string_view name);

/// The look from several places, those first that are to win. Dark: what a place says itself, or
/// else a theme in its dark variant or with such a name; light where nobody says anything. Without
/// animations where any place says so: a default elsewhere is no wish for them.
DesktopLook lookOf(std::initializer_list<LookSettings> places);

/// The look that the program has now; light and animated at first. Main thread.
const DesktopLook &currentLook();
void setCurrentLook(const DesktopLook &look);

}  // namespace platform
