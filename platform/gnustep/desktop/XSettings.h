#pragma once

#include <xcb/xcb.h>

#include <memory>

#include "platform/gnustep/desktop/DesktopLook.h"

namespace platform {

/// What the display's XSETTINGS manager says, now and whenever it changes, also one that starts
/// later. For one thread.
///
/// Not with Xlib, whose errors are those of the whole program, and which ends it with the display.
class XSettings {
 public:
  /// Of the display that DISPLAY names. Null without a display.
  static std::unique_ptr<XSettings> connect();

  XSettings(const XSettings &) = delete;
  XSettings &operator=(const XSettings &) = delete;

  /// Becomes readable when handleInput has something to do.
  int descriptor() const { return xcb_get_file_descriptor(connection_.get()); }

  /// Handles what has arrived. False when the display is gone: then the descriptor may not be used
  /// any more, and nothing will change.
  bool handleInput();

  /// What the manager says; nothing without one.
  const LookSettings &settings() const { return settings_; }

 private:
  struct Disconnect {
    void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
  };

  XSettings(xcb_connection_t *connection, int screen);
  void findManager();
  void read();
  void handle(const xcb_generic_event_t &event);

  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  xcb_atom_t selection_ = XCB_ATOM_NONE;
  xcb_atom_t property_ = XCB_ATOM_NONE;
  xcb_atom_t announcement_ = XCB_ATOM_NONE;
  xcb_window_t manager_ = XCB_WINDOW_NONE;
  LookSettings settings_;
};

}  // namespace platform
