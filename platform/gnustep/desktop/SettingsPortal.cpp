#include "platform/gnustep/desktop/SettingsPortal.h"

#include <dbus/dbus.h>
#include <sys/stat.h>

#include <cstdlib>
#include <cstring>
#include <string_view>

namespace platform {
namespace {

constexpr const char *kPortal = "org.freedesktop.portal.Desktop";
constexpr const char *kPath = "/org/freedesktop/portal/desktop";
constexpr const char *kInterface = "org.freedesktop.portal.Settings";
constexpr const char *kChanged = "SettingChanged";

constexpr const char *kAppearance = "org.freedesktop.appearance";
constexpr const char *kGnomeInterface = "org.gnome.desktop.interface";

/// The bus sends only these signals: the portal's changes of the two groups of settings, and who
/// has the portal's name.
constexpr const char *kRules[] = {
    ("type='signal',sender='org.freedesktop.portal.Desktop',"
     "interface='org.freedesktop.portal.Settings',member='SettingChanged',"
     "arg0='org.freedesktop.appearance'"),
    ("type='signal',sender='org.freedesktop.portal.Desktop',"
     "interface='org.freedesktop.portal.Settings',member='SettingChanged',"
     "arg0='org.gnome.desktop.interface'"),
    ("type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
     "member='NameOwnerChanged',arg0='org.freedesktop.portal.Desktop'"),
};

struct Release {
  void operator()(DBusMessage *message) const { dbus_message_unref(message); }
};
using Message = std::unique_ptr<DBusMessage, Release>;

Message callOf(const char *service, const char *path, const char *interface, const char *method) {
  Message call(dbus_message_new_method_call(service, path, interface, method));
  // Short of memory, like everywhere else.
  if (call == nullptr) std::abort();
  return call;
}

Message callOfBus(const char *method) {
  return callOf(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, method);
}

bool isSocket(const std::string &path) {
  struct stat found = {};
  return stat(path.c_str(), &found) == 0 && S_ISSOCK(found.st_mode);
}

/// Moves to the next value, which must be of that type; false where it is not.
bool isNext(DBusMessageIter &values, int type) {
  return dbus_message_iter_next(&values) != FALSE &&
         dbus_message_iter_get_arg_type(&values) == type;
}

std::string_view textAt(DBusMessageIter &value) {
  const char *text = "";
  if (dbus_message_iter_get_arg_type(&value) == DBUS_TYPE_STRING) {
    dbus_message_iter_get_basic(&value, &text);
  }
  return text;
}

/// Takes over the value of a setting, in as many variants as there are round it. Another type than
/// that of the setting says nothing.
void readValue(std::string_view group, std::string_view key, DBusMessageIter value,
               LookSettings &settings) {
  while (dbus_message_iter_get_arg_type(&value) == DBUS_TYPE_VARIANT) {
    DBusMessageIter inner;
    dbus_message_iter_recurse(&value, &inner);
    value = inner;
  }
  const int type = dbus_message_iter_get_arg_type(&value);
  if (group == kAppearance && key == "color-scheme" && type == DBUS_TYPE_UINT32) {
    constexpr dbus_uint32_t kDark = 1;
    constexpr dbus_uint32_t kLight = 2;
    dbus_uint32_t scheme = 0;
    dbus_message_iter_get_basic(&value, &scheme);
    settings.isDark.reset();
    if (scheme == kDark || scheme == kLight) settings.isDark = scheme == kDark;
  }
  if (group == kGnomeInterface && key == "enable-animations" && type == DBUS_TYPE_BOOLEAN) {
    dbus_bool_t isAnimated = TRUE;
    dbus_message_iter_get_basic(&value, &isAnimated);
    settings.isAnimated = isAnimated != FALSE;
  }
}

/// The settings of a group: pairs of a key and a value.
void readGroup(std::string_view group, DBusMessageIter pairs, LookSettings &settings) {
  for (; dbus_message_iter_get_arg_type(&pairs) == DBUS_TYPE_DICT_ENTRY;
       dbus_message_iter_next(&pairs)) {
    DBusMessageIter pair;
    dbus_message_iter_recurse(&pairs, &pair);
    const std::string_view key = textAt(pair);
    if (isNext(pair, DBUS_TYPE_VARIANT)) readValue(group, key, pair, settings);
  }
}

/// All that the portal replies: pairs of a group and its settings.
LookSettings settingsOfReply(DBusMessage *reply) {
  LookSettings settings;
  if (dbus_message_has_signature(reply, "a{sa{sv}}") == FALSE) return settings;
  DBusMessageIter whole;
  dbus_message_iter_init(reply, &whole);
  DBusMessageIter groups;
  dbus_message_iter_recurse(&whole, &groups);
  for (; dbus_message_iter_get_arg_type(&groups) == DBUS_TYPE_DICT_ENTRY;
       dbus_message_iter_next(&groups)) {
    DBusMessageIter pair;
    dbus_message_iter_recurse(&groups, &pair);
    const std::string_view group = textAt(pair);
    if (!isNext(pair, DBUS_TYPE_ARRAY)) continue;
    DBusMessageIter pairs;
    dbus_message_iter_recurse(&pair, &pairs);
    readGroup(group, pairs, settings);
  }
  return settings;
}

void readChange(DBusMessage *signal, LookSettings &settings) {
  if (dbus_message_has_signature(signal, "ssv") == FALSE) return;
  DBusMessageIter values;
  dbus_message_iter_init(signal, &values);
  const std::string_view group = textAt(values);
  dbus_message_iter_next(&values);
  const std::string_view key = textAt(values);
  dbus_message_iter_next(&values);
  readValue(group, key, values, settings);
}

/// Whether the signal says that the portal's name has an owner now.
bool saysThatPortalIsThere(DBusMessage *signal) {
  const char *name = nullptr;
  const char *former = nullptr;
  const char *owner = nullptr;
  if (dbus_message_get_args(signal, nullptr, DBUS_TYPE_STRING, &name, DBUS_TYPE_STRING, &former,
                            DBUS_TYPE_STRING, &owner, DBUS_TYPE_INVALID) == FALSE) {
    return false;
  }
  return std::strcmp(name, kPortal) == 0 && *owner != '\0';
}

}  // namespace

std::string addressOfSessionBus() {
  const char *const said = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  // Others start a bus, or wait for another machine.
  if (said != nullptr) return std::string_view(said).starts_with("unix:") ? said : "";
  const char *const folder = std::getenv("XDG_RUNTIME_DIR");
  if (folder == nullptr || folder[0] != '/') return {};
  const std::string path = std::string(folder) + "/bus";
  if (!isSocket(path)) return {};
  char *const escaped = dbus_address_escape_value(path.c_str());
  std::string address = std::string("unix:path=") + escaped;
  dbus_free(escaped);
  return address;
}

std::unique_ptr<SettingsPortal> SettingsPortal::connect(const std::string &address) {
  std::unique_ptr<BusSocket> bus = BusSocket::connect(address);
  if (bus == nullptr) return nullptr;
  return std::unique_ptr<SettingsPortal>(new SettingsPortal(std::move(bus)));
}

/// Asks for the signals first, so that no change in between is missed.
SettingsPortal::SettingsPortal(std::unique_ptr<BusSocket> bus) : bus_(std::move(bus)) {
  bus_->send(callOfBus("Hello").get());
  for (const char *rule : kRules) {
    const Message call = callOfBus("AddMatch");
    dbus_message_set_no_reply(call.get(), TRUE);
    dbus_message_append_args(call.get(), DBUS_TYPE_STRING, &rule, DBUS_TYPE_INVALID);
    bus_->send(call.get());
  }
  ask();
}

void SettingsPortal::ask() {
  const Message call = callOf(kPortal, kPath, kInterface, "ReadAll");
  const char *const groups[] = {kAppearance, kGnomeInterface};
  const char *const *first = groups;
  dbus_message_append_args(call.get(), DBUS_TYPE_ARRAY, DBUS_TYPE_STRING, &first, 2,
                           DBUS_TYPE_INVALID);
  request_ = bus_->send(call.get());
}

bool SettingsPortal::handleInput() {
  return bus_->receive([this](DBusMessage *message) { handle(message); });
}

void SettingsPortal::handle(DBusMessage *message) {
  if (dbus_message_get_type(message) == DBUS_MESSAGE_TYPE_METHOD_RETURN) {
    if (dbus_message_get_reply_serial(message) == request_) settings_ = settingsOfReply(message);
  } else if (dbus_message_is_signal(message, kInterface, kChanged) != FALSE) {
    readChange(message, settings_);
  } else if (dbus_message_is_signal(message, DBUS_INTERFACE_DBUS, "NameOwnerChanged") != FALSE) {
    if (saysThatPortalIsThere(message)) ask();
  }
}

}  // namespace platform
