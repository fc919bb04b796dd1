#pragma once

#include <memory>
#include <string>

#include "platform/gnustep/desktop/BusSocket.h"
#include "platform/gnustep/desktop/DesktopLook.h"

namespace platform {

/// The address of the session bus; empty where there is none, or none that can be connected to
/// without waiting, which are those on sockets of this machine. Starts no bus. Any thread.
std::string addressOfSessionBus();

/// What the desktop's portal (org.freedesktop.portal.Settings) says, now and whenever it changes.
/// Nothing waits for the bus or the portal: requests are sent, and replies are handled when they
/// arrive. A portal that starts later, or again, is asked then. For one thread.
class SettingsPortal {
 public:
  /// Asks the portal on the bus at that address. Null where no bus listens there.
  static std::unique_ptr<SettingsPortal> connect(const std::string &address);

  SettingsPortal(const SettingsPortal &) = delete;
  SettingsPortal &operator=(const SettingsPortal &) = delete;

  /// Becomes readable when handleInput has something to do.
  int descriptor() const { return bus_->descriptor(); }

  /// Handles what has arrived. False when the bus has ended the connection: then the descriptor
  /// may not be used any more, and nothing will change.
  bool handleInput();

  /// What the portal has said so far; nothing before its first reply.
  const LookSettings &settings() const { return settings_; }

 private:
  explicit SettingsPortal(std::unique_ptr<BusSocket> bus);
  void ask();
  void handle(DBusMessage *message);

  std::unique_ptr<BusSocket> bus_;
  /// The number of the last request, to which the reply refers.
  unsigned request_ = 0;
  LookSettings settings_;
};

}  // namespace platform
