#include "platform/gnustep/desktop/GtkSettings.h"
#include "tests/fuzz/Target.h"

namespace {

void promiseThatNothingIsInvented(const platform::LookSettings &settings, std::string_view input) {
  fuzz::promise(!settings.isDark.has_value(), "only a portal says whether the desktop is dark");
  if (!settings.theme.has_value()) return;
  fuzz::promise(!settings.theme->empty(), "a theme has a name");
  fuzz::promise(input.find(*settings.theme) != input.npos, "the name is in the settings");
}

}  // namespace

/// input: a settings file, or the property of an XSETTINGS manager.
void fuzz::DesktopSettings(std::string_view input) {
  promiseThatNothingIsInvented(platform::settingsOfIniFile(input), input);
  const auto *const bytes = reinterpret_cast<const unsigned char *>(input.data());
  promiseThatNothingIsInvented(platform::settingsOfXSettings({bytes, input.size()}), input);
}
