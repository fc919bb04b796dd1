#include "platform/gnustep/desktop/SettingsPortal.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "tests/support/desktop/SessionBus.h"

using platform::LookSettings;
using platform::SettingsPortal;

namespace {

const LookSettings kNothing;

struct Portal : testing::Test {
  SessionBus bus;
  ScriptedPortal desktop{bus};

  /// A client that has been told the settings for as long as it takes.
  std::unique_ptr<SettingsPortal> client = nullptr;

  void connect() {
    client = SettingsPortal::connect(bus.address());
    ASSERT_NE(client, nullptr);
  }

  /// Handles what arrives until the condition holds, as waitFor does. Looks only when there is
  /// input, as a run loop does.
  template <class Condition>
  bool handlesUntil(Condition condition) {
    return waitFor([&] {
      if (condition()) return true;
      pollfd input = {client->descriptor(), POLLIN, 0};
      if (poll(&input, 1, 0) == 1) isConnected = client->handleInput();
      return condition();
    });
  }

  bool becomes(const LookSettings &settings) {
    return handlesUntil([&] { return client->settings() == settings; });
  }

  bool isConnected = true;
};

/// A variable of the environment, changed for a test.
class Variable {
 public:
  Variable(const char *name, const char *value) : name_(name) {
    if (const char *const former = std::getenv(name)) former_ = former;
    set(value);
  }
  ~Variable() { set(former_.has_value() ? former_->c_str() : nullptr); }
  Variable(const Variable &) = delete;
  Variable &operator=(const Variable &) = delete;

 private:
  void set(const char *value) const {
    if (value == nullptr) {
      unsetenv(name_);
    } else {
      setenv(name_, value, 1);
    }
  }

  const char *name_;
  std::optional<std::string> former_;
};

int listeningSocket(const std::string &path, int backlog) {
  const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
  EXPECT_EQ(bind(listener, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
  EXPECT_EQ(listen(listener, backlog), 0);
  return listener;
}

}  // namespace

TEST_F(Portal, SaysWhetherTheDesktopIsDarkAndAnimated) {
  desktop.setDark(true);
  desktop.tell("set org.gnome.desktop.interface enable-animations b 0");
  desktop.tell("set org.gnome.desktop.interface cursor-size u 24");
  desktop.tell("appear");
  connect();
  EXPECT_TRUE(becomes({.isDark = true, .isAnimated = false}));
}

TEST_F(Portal, SaysWhenThatChanges) {
  desktop.setDark(false);
  desktop.tell("appear");
  connect();
  EXPECT_TRUE(becomes({.isDark = false}));
  desktop.changeToDark(true);
  EXPECT_TRUE(becomes({.isDark = true}));
  desktop.tell("change org.gnome.desktop.interface enable-animations b 0");
  EXPECT_TRUE(becomes({.isDark = true, .isAnimated = false}));
}

TEST_F(Portal, WithoutAPreferenceSaysNothing) {
  desktop.setDark(true);
  desktop.tell("appear");
  connect();
  EXPECT_TRUE(becomes({.isDark = true}));
  desktop.tell("change org.freedesktop.appearance color-scheme u 0");
  EXPECT_TRUE(becomes(kNothing));
}

TEST_F(Portal, ThatStartsLaterIsAskedThen) {
  connect();
  desktop.setDark(true);
  desktop.tell("appear");
  EXPECT_TRUE(becomes({.isDark = true}));
}

TEST_F(Portal, ThatDoesNotReplySaysNothingUntilSomethingChanges) {
  desktop.tell("hang");
  desktop.tell("appear");
  connect();
  EXPECT_EQ(client->settings(), kNothing);
  // Again and again, because nothing tells when the bus has begun to pass on signals.
  EXPECT_TRUE(handlesUntil([this] {
    desktop.changeToDark(true);
    return client->settings().isDark == true;
  }));
}

TEST_F(Portal, ValuesOfOtherTypesSayNothing) {
  desktop.tell("set org.freedesktop.appearance color-scheme b 1");
  desktop.tell("set org.gnome.desktop.interface enable-animations u 0");
  desktop.tell("set org.gnome.desktop.interface cursor-size u 24");
  desktop.tell("appear");
  connect();
  EXPECT_TRUE(handlesUntil([this] {
    desktop.changeToDark(false);
    return client->settings() == LookSettings{.isDark = false};
  }));
}

TEST_F(Portal, WhatItSaidLastStaysWhenTheBusEnds) {
  desktop.setDark(true);
  desktop.tell("appear");
  connect();
  EXPECT_TRUE(becomes({.isDark = true}));
  bus.process().signal(SIGKILL);
  EXPECT_TRUE(handlesUntil([this] { return !isConnected; }));
  EXPECT_EQ(client->settings().isDark, true);
}

TEST_F(Portal, ABusThatHangsIsNotWaitedFor) {
  desktop.setDark(true);
  desktop.tell("appear");
  bus.process().signal(SIGSTOP);
  connect();
  EXPECT_FALSE(client->settings().isDark.has_value());
  bus.process().signal(SIGCONT);
  EXPECT_TRUE(becomes({.isDark = true}));
}

TEST(PortalsBus, ThatAcceptsNobodyIsNotWaitedFor) {
  const std::string path = newTemporaryFolder() + "/bus";
  const int listener = listeningSocket(path, 0);
  // Takes the only place in the queue. The second finds none; others would wait for ever.
  const std::unique_ptr<SettingsPortal> first = SettingsPortal::connect("unix:path=" + path);
  EXPECT_NE(first, nullptr);
  EXPECT_EQ(SettingsPortal::connect("unix:path=" + path), nullptr);
  close(listener);
}

TEST(PortalsBus, ThatSendsNonsenseEndsTheConnection) {
  for (const char *sent :
       {"REJECTED EXTERNAL\r\n", "OK 12\r\nno message at all, but long enough"}) {
    const std::string path = newTemporaryFolder() + "/bus";
    const int listener = listeningSocket(path, 1);
    const std::unique_ptr<SettingsPortal> client = SettingsPortal::connect("unix:path=" + path);
    ASSERT_NE(client, nullptr);
    EXPECT_TRUE(client->handleInput());
    const int daemon = accept(listener, nullptr, nullptr);
    EXPECT_EQ(send(daemon, sent, std::strlen(sent), 0), static_cast<ssize_t>(std::strlen(sent)));
    EXPECT_FALSE(client->handleInput()) << sent;
    close(daemon);
    close(listener);
  }
}

TEST(PortalsBus, IsNoneWhereNobodyListens) {
  const std::string path = newTemporaryFolder() + "/bus";
  EXPECT_EQ(SettingsPortal::connect("unix:path=" + path), nullptr);
  EXPECT_EQ(SettingsPortal::connect("unix:path=/" + std::string(200, 'a')), nullptr);
  EXPECT_EQ(SettingsPortal::connect("nonsense"), nullptr);
  EXPECT_EQ(SettingsPortal::connect(""), nullptr);
}

TEST(AddressOfSessionBus, IsWhatTheSessionSays) {
  const Variable address("DBUS_SESSION_BUS_ADDRESS", "unix:path=/run/user/1000/bus,guid=1");
  EXPECT_EQ(platform::addressOfSessionBus(), "unix:path=/run/user/1000/bus,guid=1");
}

TEST(AddressOfSessionBus, IsNoneThatWouldStartABusOrWait) {
  for (const char *said : {"autolaunch:", "tcp:host=example.org,port=1", "unixexec:path=/bin/sh"}) {
    const Variable address("DBUS_SESSION_BUS_ADDRESS", said);
    EXPECT_EQ(platform::addressOfSessionBus(), "") << said;
  }
}

TEST(AddressOfSessionBus, IsInTheFolderOfTheSessionWhereNobodySaysMore) {
  const std::string folder = newTemporaryFolder();
  const Variable address("DBUS_SESSION_BUS_ADDRESS", nullptr);
  const Variable runtime("XDG_RUNTIME_DIR", folder.c_str());
  EXPECT_EQ(platform::addressOfSessionBus(), "");
  const int listener = listeningSocket(folder + "/bus", 1);
  EXPECT_EQ(platform::addressOfSessionBus(), "unix:path=" + folder + "/bus");
  close(listener);
}
