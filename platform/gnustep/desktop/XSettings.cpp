#include "platform/gnustep/desktop/XSettings.h"

#include <cstdlib>
#include <string>

#include "platform/gnustep/desktop/GtkSettings.h"

namespace platform {
namespace {

/// In units of four bytes; a longer property is no list of settings.
constexpr std::uint32_t kLongestProperty = 16384;

/// The first bit of an event's type says whether another program has sent it.
constexpr std::uint8_t kTypeMask = 0x7F;

/// What the display has allocated.
struct Free {
  void operator()(void *reply) const { std::free(reply); }
};
template <class Value>
using Allocated = std::unique_ptr<Value, Free>;

xcb_intern_atom_cookie_t request(xcb_connection_t *connection, const std::string &name) {
  return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
}

xcb_atom_t replied(xcb_connection_t *connection, xcb_intern_atom_cookie_t request) {
  const Allocated<xcb_intern_atom_reply_t> reply(
      xcb_intern_atom_reply(connection, request, nullptr));
  return reply == nullptr ? XCB_ATOM_NONE : reply->atom;
}

xcb_window_t rootWindow(xcb_connection_t *connection, int screen) {
  xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  while (screen-- > 0 && screens.rem > 1) xcb_screen_next(&screens);
  return screens.rem > 0 ? screens.data->root : XCB_WINDOW_NONE;
}

void selectEvents(xcb_connection_t *connection, xcb_window_t window, std::uint32_t events) {
  xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &events);
}

}  // namespace

std::unique_ptr<XSettings> XSettings::connect() {
  int screen = 0;
  xcb_connection_t *const connection = xcb_connect(nullptr, &screen);
  if (xcb_connection_has_error(connection) != 0) {
    xcb_disconnect(connection);
    return nullptr;
  }
  return std::unique_ptr<XSettings>(new XSettings(connection, screen));
}

XSettings::XSettings(xcb_connection_t *connection, int screen) : connection_(connection) {
  const auto selection = request(connection, "_XSETTINGS_S" + std::to_string(screen));
  const auto property = request(connection, "_XSETTINGS_SETTINGS");
  const auto announcement = request(connection, "MANAGER");
  // A manager announces itself to who has selected this at the root window.
  selectEvents(connection, rootWindow(connection, screen), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  selection_ = replied(connection, selection);
  property_ = replied(connection, property);
  announcement_ = replied(connection, announcement);
  findManager();
}

void XSettings::findManager() {
  const Allocated<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
      connection_.get(), xcb_get_selection_owner(connection_.get(), selection_), nullptr));
  manager_ = reply == nullptr ? static_cast<xcb_window_t>(XCB_WINDOW_NONE) : reply->owner;
  settings_ = {};
  if (manager_ == XCB_WINDOW_NONE) return;
  // Selected before it is read, so that no change in between is missed.
  selectEvents(connection_.get(), manager_,
               XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  read();
}

void XSettings::read() {
  const Allocated<xcb_get_property_reply_t> reply(
      xcb_get_property_reply(connection_.get(),
                             xcb_get_property(connection_.get(), 0, manager_, property_,
                                              XCB_GET_PROPERTY_TYPE_ANY, 0, kLongestProperty),
                             nullptr));
  settings_ = {};
  if (reply == nullptr || reply->format != 8) return;
  settings_ =
      settingsOfXSettings({static_cast<const unsigned char *>(xcb_get_property_value(reply.get())),
                           static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))});
}

bool XSettings::handleInput() {
  // Events that arrive with a reply are in the queue by then, and do not make the descriptor
  // readable again; this reads both.
  while (const Allocated<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
    handle(*event);
  }
  return xcb_connection_has_error(connection_.get()) == 0;
}

void XSettings::handle(const xcb_generic_event_t &event) {
  switch (event.response_type & kTypeMask) {
    case XCB_PROPERTY_NOTIFY: {
      const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(event);
      if (change.window == manager_ && change.atom == property_) read();
      return;
    }
    case XCB_DESTROY_NOTIFY: {
      const auto &end = reinterpret_cast<const xcb_destroy_notify_event_t &>(event);
      if (end.window == manager_) findManager();
      return;
    }
    case XCB_CLIENT_MESSAGE: {
      const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(event);
      if (message.type == announcement_ && message.data.data32[1] == selection_) findManager();
      return;
    }
    default:
      return;
  }
}

}  // namespace platform
