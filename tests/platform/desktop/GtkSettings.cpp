#include "platform/gnustep/desktop/GtkSettings.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "tests/platform/desktop/XSettingsBytes.h"
#include "tests/support/ChildProcess.h"

using platform::LookSettings;
using platform::settingsOfIniFile;
using platform::settingsOfThemeVariable;
using platform::settingsOfUsersIniFile;
using platform::settingsOfXSettings;

namespace {

/// A folder for settings that this process has instead of its own.
struct UsersIniFile : testing::Test {
  const std::string folder = newTemporaryFolder();
  const std::string path = folder + "/gtk-3.0/settings.ini";
  const std::string formerFolder = std::getenv("XDG_CONFIG_HOME");

  UsersIniFile() {
    mkdir((folder + "/gtk-3.0").c_str(), 0700);
    setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
  }
  ~UsersIniFile() override { setenv("XDG_CONFIG_HOME", formerFolder.c_str(), 1); }

  void write(const std::string &text) const { std::ofstream(path) << text; }
};

constexpr const char *kDarkFile = "[Settings]\ngtk-theme-name=Yaru-dark\n";
const LookSettings kNothing;

}  // namespace

TEST(ThemeVariable, IsATheme) {
  EXPECT_EQ(settingsOfThemeVariable("Adwaita:dark").theme, "Adwaita:dark");
}

TEST(ThemeVariable, OverridesTheDarkVariant) {
  EXPECT_EQ(settingsOfThemeVariable("Adwaita").prefersDarkVariant, false);
}

TEST(ThemeVariable, SaysNothingWhereItIsNotSet) {
  EXPECT_EQ(settingsOfThemeVariable(nullptr), kNothing);
  EXPECT_EQ(settingsOfThemeVariable(""), kNothing);
}

TEST(SettingsFile, HasThemeVariantAndAnimations) {
  const LookSettings expected = {
      .prefersDarkVariant = true, .theme = "Yaru-dark", .isAnimated = false};
  EXPECT_EQ(settingsOfIniFile("[Settings]\n"
                              "gtk-theme-name = Yaru-dark \n"
                              "gtk-font-name=Cantarell 11\n"
                              "gtk-application-prefer-dark-theme=1\r\n"
                              "gtk-enable-animations=false"),
            expected);
}

TEST(SettingsFile, CommentsAndOtherGroupsSayNothing) {
  EXPECT_EQ(settingsOfIniFile("gtk-theme-name=a\n[Other]\ngtk-theme-name=b\n"
                              "[Settings]\n#gtk-theme-name=c\n;\n\n"),
            kNothing);
}

TEST(SettingsFile, NonsenseSaysNothing) {
  for (const char *text : {"", "[Settings]", "[Settings]\ngtk-theme-name", "[Settings]\n=\n==\n",
                           "[Settings]\ngtk-theme-name=\ngtk-enable-animations=perhaps\n"}) {
    EXPECT_EQ(settingsOfIniFile(text), kNothing) << text;
  }
}

TEST_F(UsersIniFile, IsInTheFolderForSettings) {
  write(kDarkFile);
  EXPECT_EQ(settingsOfUsersIniFile().theme, "Yaru-dark");
}

TEST_F(UsersIniFile, SaysNothingWhereThereIsNone) {
  EXPECT_EQ(settingsOfUsersIniFile(), kNothing);
}

TEST_F(UsersIniFile, APipeOrAFolderInItsPlaceBlocksNobody) {
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(settingsOfUsersIniFile(), kNothing);
  ASSERT_EQ(unlink(path.c_str()), 0);
  ASSERT_EQ(mkdir(path.c_str(), 0700), 0);
  EXPECT_EQ(settingsOfUsersIniFile(), kNothing);
}

TEST_F(UsersIniFile, ThatIsTooLongSaysNothing) {
  write(kDarkFile + std::string(70000, '\n'));
  EXPECT_EQ(settingsOfUsersIniFile(), kNothing);
}

TEST(XSettingsProperty, HasThemeAndAnimationsAmongOthersInBothByteOrders) {
  const LookSettings expected = {.theme = "Greybird-dark", .isAnimated = false};
  for (bool isBigEndian : {false, true}) {
    XSettingsBytes property(isBigEndian);
    property.addColor("Gtk/SomeColor");
    property.addText("Net/ThemeName", "Greybird-dark");
    property.addNumber("Xft/DPI", 98304);
    property.addNumber("Gtk/EnableAnimations", 0);
    EXPECT_EQ(settingsOfXSettings(property.bytes()), expected);
  }
}

TEST(XSettingsProperty, ThatEndsEarlySaysOnlyWhatIsComplete) {
  XSettingsBytes property(false);
  property.addNumber("Gtk/EnableAnimations", 1);
  const std::size_t complete = property.bytes().size();
  property.addText("Net/ThemeName", "Dark");
  const std::vector<unsigned char> all = property.bytes();
  for (std::size_t length = 0; length < all.size(); ++length) {
    const LookSettings settings = settingsOfXSettings({all.data(), length});
    EXPECT_EQ(settings.theme, std::nullopt) << length;
    EXPECT_EQ(settings.isAnimated.has_value(), length >= complete) << length;
  }
}

TEST(XSettingsProperty, OfAnUnknownTypeEndsThere) {
  XSettingsBytes property(false);
  property.add("Gtk/Unknown", 7, {});
  property.addText("Net/ThemeName", "Dark");
  EXPECT_EQ(settingsOfXSettings(property.bytes()), kNothing);
}
