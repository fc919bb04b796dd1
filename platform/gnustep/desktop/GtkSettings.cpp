#include "platform/gnustep/desktop/GtkSettings.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>

namespace platform {
namespace {

/// A file that is longer is no settings file.
constexpr std::size_t kLongestFile = 65536;

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// As GTK's key files: "true" and "1", "false" and "0".
std::optional<bool> flagOf(std::string_view value) {
  if (value == "true" || value == "1") return true;
  if (value == "false" || value == "0") return false;
  return std::nullopt;
}

std::optional<std::string> nameOf(std::string_view value) {
  if (value.empty()) return std::nullopt;
  return std::string(value);
}

/// The rest of a text up to the next line break, which is removed from it with the break.
std::string_view takeLine(std::string_view &text) {
  const std::size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return trimmed(line);
}

void readIniSetting(std::string_view line, LookSettings &settings) {
  const std::size_t sign = line.find('=');
  if (sign == std::string_view::npos) return;
  const std::string_view key = trimmed(line.substr(0, sign));
  const std::string_view value = trimmed(line.substr(sign + 1));
  if (key == "gtk-theme-name") settings.theme = nameOf(value);
  if (key == "gtk-application-prefer-dark-theme") settings.prefersDarkVariant = flagOf(value);
  if (key == "gtk-enable-animations") settings.isAnimated = flagOf(value);
}

/// Reads the property of an XSETTINGS manager from its beginning to its end. From the first thing
/// on that the format does not have, as an early end, it is broken and reads nothing but 0.
class XSettingsReader {
 public:
  explicit XSettingsReader(std::span<const unsigned char> bytes) : bytes_(bytes) {}

  bool isBroken() const { return isBroken_; }
  void setByteOrder(unsigned order) { isBigEndian_ = order != 0; }

  std::uint32_t number(std::size_t length) {
    const std::span<const unsigned char> part = take(length);
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < part.size(); ++i) {
      number = number << 8 | part[isBigEndian_ ? i : part.size() - 1 - i];
    }
    return number;
  }

  std::string_view text(std::size_t length) {
    const std::span<const unsigned char> part = take(length);
    return {reinterpret_cast<const char *>(part.data()), part.size()};
  }

  void skip(std::size_t length) { take(length); }

  /// Texts fill multiples of four bytes.
  void skipPaddingOf(std::size_t length) { take((4 - length % 4) % 4); }

  void stop() {
    isBroken_ = true;
    bytes_ = {};
  }

 private:
  std::span<const unsigned char> take(std::size_t length) {
    if (length > bytes_.size()) {
      stop();
      return {};
    }
    const std::span<const unsigned char> part = bytes_.first(length);
    bytes_ = bytes_.subspan(length);
    return part;
  }

  std::span<const unsigned char> bytes_;
  bool isBigEndian_ = false;
  bool isBroken_ = false;
};

constexpr unsigned kIntegerType = 0;
constexpr unsigned kTextType = 1;
constexpr unsigned kColorType = 2;
constexpr std::size_t kColorLength = 8;

void readXSetting(XSettingsReader &reader, LookSettings &settings) {
  const unsigned type = reader.number(1);
  reader.skip(1);
  const std::size_t nameLength = reader.number(2);
  const std::string_view name = reader.text(nameLength);
  reader.skipPaddingOf(nameLength);
  reader.skip(4);  // when it was changed
  if (type == kTextType) {
    const std::size_t length = reader.number(4);
    const std::string_view value = reader.text(length);
    reader.skipPaddingOf(length);
    if (reader.isBroken()) return;
    if (name == "Net/ThemeName") settings.theme = nameOf(value);
  } else if (type == kIntegerType) {
    const std::uint32_t value = reader.number(4);
    if (reader.isBroken()) return;
    if (name == "Gtk/EnableAnimations") settings.isAnimated = value != 0;
    if (name == "Gtk/ApplicationPreferDarkTheme") settings.prefersDarkVariant = value != 0;
  } else if (type == kColorType) {
    reader.skip(kColorLength);
  } else {
    reader.stop();
  }
}

std::string pathOfUsersIniFile() {
  constexpr const char *kFile = "/gtk-3.0/settings.ini";
  const char *const folder = std::getenv("XDG_CONFIG_HOME");
  if (folder != nullptr && folder[0] == '/') return std::string(folder) + kFile;
  const char *const home = std::getenv("HOME");
  return home == nullptr ? "" : std::string(home) + "/.config" + kFile;
}

/// Empty for what is no file, or too long a one.
std::string contentsOfFile(const std::string &path) {
  // A pipe in its place would block.
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (file < 0) return {};
  struct stat found = {};
  std::string text;
  if (fstat(file, &found) == 0 && S_ISREG(found.st_mode)) {
    std::array<char, 1024> part;
    ssize_t length = 0;
    while (text.size() <= kLongestFile && (length = read(file, part.data(), part.size())) > 0) {
      text.append(part.data(), static_cast<std::size_t>(length));
    }
  }
  close(file);
  return text.size() > kLongestFile ? std::string() : text;
}

}  // namespace

LookSettings settingsOfThemeVariable(const char *value) {
  LookSettings settings;
  if (value == nullptr || value[0] == '\0') return settings;
  settings.theme = value;
  settings.prefersDarkVariant = false;
  return settings;
}

LookSettings settingsOfIniFile(std::string_view text) {
  LookSettings settings;
  bool isInGroup = false;
  while (!text.empty()) {
    const std::string_view line = takeLine(text);
    if (line.empty() || line.front() == '#') continue;
    if (line.front() == '[') {
      isInGroup = line == "[Settings]";
    } else if (isInGroup) {
      readIniSetting(line, settings);
    }
  }
  return settings;
}

LookSettings settingsOfXSettings(std::span<const unsigned char> bytes) {
  LookSettings settings;
  XSettingsReader reader(bytes);
  reader.setByteOrder(reader.number(1));
  reader.skip(3);
  reader.skip(4);  // how often they were changed
  std::uint32_t count = reader.number(4);
  while (count-- > 0 && !reader.isBroken()) readXSetting(reader, settings);
  return settings;
}

LookSettings settingsOfUsersIniFile() {
  return settingsOfIniFile(contentsOfFile(pathOfUsersIniFile()));
}

}  // namespace platform
