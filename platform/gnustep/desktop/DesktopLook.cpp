#include "platform/gnustep/desktop/DesktopLook.h"

#include <algorithm>
#include <cctype>

namespace platform {
namespace {

DesktopLook shownLook;

bool isLetterOrDigit(unsigned char character) {
  return std::isalnum(character) != 0;
}

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char character) { return std::tolower(character); });
  return lower;
}

/// What the first place says that says anything of it.
template <class Value>
std::optional<Value> firstOf(std::initializer_list<LookSettings> places,
                             std::optional<Value> LookSettings::*setting) {
  for (const LookSettings &place : places) {
    if ((place.*setting).has_value()) return place.*setting;
  }
  return std::nullopt;
}

bool isDark(std::initializer_list<LookSettings> places) {
  const std::optional<bool> said = firstOf(places, &LookSettings::isDark);
  if (said.has_value()) return *said;
  if (firstOf(places, &LookSettings::prefersDarkVariant).value_or(false)) return true;
  return isDarkTheme(firstOf(places, &LookSettings::theme).value_or(""));
}

}  // namespace

bool isDarkTheme(std::string_view name) {
  // The high contrast theme is the only one whose dark variant is called otherwise.
  if (name == "HighContrastInverse") return true;
  const std::string lower = lowerCase(name);
  auto begin = lower.begin();
  while (begin != lower.end()) {
    const auto end = std::find_if_not(begin, lower.end(), isLetterOrDigit);
    if (std::string(begin, end) == "dark") return true;
    begin = std::find_if(end, lower.end(), isLetterOrDigit);
  }
  return false;
}

DesktopLook lookOf(std::initializer_list<LookSettings> places) {
  DesktopLook look;
  look.isDark = isDark(places);
  look.isAnimated = std::none_of(places.begin(), places.end(), [](const LookSettings &place) {
    return place.isAnimated == false;
  });
  return look;
}

const DesktopLook &currentLook() {
  return shownLook;
}

void setCurrentLook(const DesktopLook &look) {
  shownLook = look;
}

}  // namespace platform
