// Stands in for a desktop's portal of settings. Its argument is a named pipe from which it reads
// lines, and it prints "done" after each:
//
//   appear                        takes the portal's name on the session bus
//   set GROUP KEY TYPE VALUE      has a setting from now on; TYPE u or b, VALUE a number
//   change GROUP KEY TYPE VALUE   the same, and says so
//   hang                          does not reply any more
#include <dbus/dbus.h>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <utility>

namespace {

constexpr const char *kPortal = "org.freedesktop.portal.Desktop";
constexpr const char *kInterface = "org.freedesktop.portal.Settings";

struct Value {
  char type = DBUS_TYPE_UINT32;
  dbus_uint32_t number = 0;
};
using Group = std::map<std::string, Value>;

std::map<std::string, Group> settings;
bool hangs = false;

void append(DBusMessageIter *to, const Value &value) {
  const char signature[] = {value.type, '\0'};
  DBusMessageIter variant;
  dbus_message_iter_open_container(to, DBUS_TYPE_VARIANT, signature, &variant);
  dbus_message_iter_append_basic(&variant, value.type, &value.number);
  dbus_message_iter_close_container(to, &variant);
}

void append(DBusMessageIter *to, const std::string &text) {
  const char *const bytes = text.c_str();
  dbus_message_iter_append_basic(to, DBUS_TYPE_STRING, static_cast<const void *>(&bytes));
}

template <class Contents>
void appendPair(DBusMessageIter *to, const std::string &key, Contents contents) {
  DBusMessageIter pair;
  dbus_message_iter_open_container(to, DBUS_TYPE_DICT_ENTRY, nullptr, &pair);
  append(&pair, key);
  contents(&pair);
  dbus_message_iter_close_container(to, &pair);
}

template <class Contents>
void appendArray(DBusMessageIter *to, const char *signature, Contents contents) {
  DBusMessageIter array;
  dbus_message_iter_open_container(to, DBUS_TYPE_ARRAY, signature, &array);
  contents(&array);
  dbus_message_iter_close_container(to, &array);
}

void appendSettings(DBusMessageIter *to) {
  appendArray(to, "{sa{sv}}", [](DBusMessageIter *groups) {
    for (const auto &group : settings) {
      appendPair(groups, group.first, [&](DBusMessageIter *pair) {
        appendArray(pair, "{sv}", [&](DBusMessageIter *values) {
          for (const auto &setting : group.second) {
            appendPair(values, setting.first,
                       [&](DBusMessageIter *value) { append(value, setting.second); });
          }
        });
      });
    }
  });
}

void handle(DBusConnection *bus, DBusMessage *message) {
  if (hangs || dbus_message_is_method_call(message, kInterface, "ReadAll") == FALSE) return;
  DBusMessage *const reply = dbus_message_new_method_return(message);
  DBusMessageIter arguments;
  dbus_message_iter_init_append(reply, &arguments);
  appendSettings(&arguments);
  dbus_connection_send(bus, reply, nullptr);
  dbus_connection_flush(bus);
  dbus_message_unref(reply);
}

void sendChange(DBusConnection *bus, const std::string &group, const std::string &key) {
  DBusMessage *const signal =
      dbus_message_new_signal("/org/freedesktop/portal/desktop", kInterface, "SettingChanged");
  DBusMessageIter arguments;
  dbus_message_iter_init_append(signal, &arguments);
  append(&arguments, group);
  append(&arguments, key);
  append(&arguments, settings[group][key]);
  dbus_connection_send(bus, signal, nullptr);
  dbus_connection_flush(bus);
  dbus_message_unref(signal);
}

void obey(DBusConnection *bus, const std::string &line) {
  std::istringstream words(line);
  std::string command;
  std::string group;
  std::string key;
  Value value;
  words >> command >> group >> key >> value.type >> value.number;
  if (command == "appear") dbus_bus_request_name(bus, kPortal, 0, nullptr);
  if (command == "hang") hangs = true;
  if (command == "set" || command == "change") settings[group][key] = value;
  if (command == "change") sendChange(bus, group, key);
  std::cout << "done" << std::endl;
}

}  // namespace

int main(int argc, char *argv[]) {
  // Also for writing, so that it does not end with the first writer.
  const int commands = argc == 2 ? open(argv[1], O_RDWR | O_CLOEXEC) : -1;
  DBusConnection *const bus = dbus_bus_get_private(DBUS_BUS_SESSION, nullptr);
  int descriptor = -1;
  if (commands < 0 || bus == nullptr || dbus_connection_get_unix_fd(bus, &descriptor) == FALSE)
    return 1;
  pollfd inputs[] = {{commands, POLLIN, 0}, {descriptor, POLLIN, 0}};
  std::string lines;
  while (dbus_connection_get_is_connected(bus) != FALSE && poll(inputs, 2, -1) > 0) {
    if (inputs[0].revents != 0) {
      char bytes[256];
      const ssize_t length = read(commands, bytes, sizeof bytes);
      if (length <= 0) return 0;
      lines.append(bytes, static_cast<std::size_t>(length));
    }
    for (std::size_t end; (end = lines.find('\n')) != std::string::npos;) {
      obey(bus, lines.substr(0, end));
      lines.erase(0, end + 1);
    }
    dbus_connection_read_write(bus, 0);
    while (DBusMessage *const message = dbus_connection_pop_message(bus)) {
      handle(bus, message);
      dbus_message_unref(message);
    }
  }
  return 0;
}
