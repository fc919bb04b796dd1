#include "platform/gnustep/desktop/XSettings.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <vector>

#include "tests/platform/desktop/XSettingsBytes.h"
#include "tests/support/ChildProcess.h"

using platform::LookSettings;

namespace {

/// An XSETTINGS manager of the private screen.
class Manager {
 public:
  Manager() {
    xcb_create_window(connection_, 0, window_, screen_->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
  }
  ~Manager() { xcb_disconnect(connection_); }
  Manager(const Manager &) = delete;
  Manager &operator=(const Manager &) = delete;

  void set(const XSettingsBytes &settings) {
    const std::vector<unsigned char> bytes = settings.bytes();
    const xcb_atom_t name = atom("_XSETTINGS_SETTINGS");
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window_, name, name, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
    xcb_flush(connection_);
  }

  /// Becomes the manager and says so.
  void appear() {
    xcb_set_selection_owner(connection_, window_, atom("_XSETTINGS_S0"), XCB_CURRENT_TIME);
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = screen_->root;
    message.type = atom("MANAGER");
    message.data.data32[1] = atom("_XSETTINGS_S0");
    message.data.data32[2] = window_;
    xcb_send_event(connection_, 0, screen_->root, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&message));
    xcb_flush(connection_);
  }

 private:
  xcb_atom_t atom(const std::string &name) const {
    xcb_intern_atom_reply_t *const reply = xcb_intern_atom_reply(
        connection_,
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
        nullptr);
    const xcb_atom_t atom = reply->atom;
    std::free(reply);
    return atom;
  }

  xcb_connection_t *const connection_ = xcb_connect(nullptr, nullptr);
  xcb_screen_t *const screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
  const xcb_window_t window_ = xcb_generate_id(connection_);
};

XSettingsBytes themed(const char *theme) {
  XSettingsBytes settings(false);
  settings.addText("Net/ThemeName", theme);
  return settings;
}

struct XSettings : testing::Test {
  std::unique_ptr<platform::XSettings> client = nullptr;

  void connect() {
    client = platform::XSettings::connect();
    ASSERT_NE(client, nullptr);
  }

  bool becomes(const LookSettings &settings) {
    return waitFor([&] {
      pollfd input = {client->descriptor(), POLLIN, 0};
      if (poll(&input, 1, 0) == 1) EXPECT_TRUE(client->handleInput());
      return client->settings() == settings;
    });
  }
};

}  // namespace

TEST_F(XSettings, AreReadAtOnce) {
  Manager manager;
  manager.set(themed("Greybird-dark"));
  manager.appear();
  connect();
  EXPECT_TRUE(becomes({.theme = "Greybird-dark"}));
}

TEST_F(XSettings, SayWhenTheyChange) {
  Manager manager;
  manager.set(themed("Greybird"));
  manager.appear();
  connect();
  EXPECT_TRUE(becomes({.theme = "Greybird"}));
  manager.set(themed("Greybird-dark"));
  EXPECT_TRUE(becomes({.theme = "Greybird-dark"}));
}

TEST_F(XSettings, SayNothingWithoutAManager) {
  connect();
  EXPECT_EQ(client->settings(), LookSettings());
}

TEST_F(XSettings, AreThoseOfAManagerThatStartsLaterAndOfTheNext) {
  connect();
  {
    Manager manager;
    manager.set(themed("Greybird-dark"));
    manager.appear();
    EXPECT_TRUE(becomes({.theme = "Greybird-dark"}));
  }
  EXPECT_TRUE(becomes({}));
  Manager next;
  next.set(themed("Arc-Dark"));
  next.appear();
  EXPECT_TRUE(becomes({.theme = "Arc-Dark"}));
}
