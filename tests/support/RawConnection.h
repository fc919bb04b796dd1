#pragma once

#include <string>

/// A socket to a named connection, for sending arbitrary bytes without the platform.
class RawConnection {
 public:
  /// name: as it has been registered. See isConnected.
  explicit RawConnection(const std::string &name);
  ~RawConnection();
  RawConnection(const RawConnection &) = delete;
  RawConnection &operator=(const RawConnection &) = delete;

  bool isConnected() const { return connected_; }

  /// Sends as much of it as the other side takes at once.
  void say(const std::string &bytes) const;

  /// The path of the socket behind a name; "" when it is not registered.
  static std::string socketOf(const std::string &name);

 private:
  int socket_;
  bool connected_ = false;
};

// Messages as the platform frames them.

/// The message that introduces a sender: a frame of its own before the first message.
std::string introduction();

/// identifier: 0 is a request, 1 a reply, 2 a request for a signature; items: how many parts the
/// content claims to have.
std::string wireMessage(unsigned identifier, unsigned items, const std::string &content);

/// Four bytes, as lengths and identifiers are written.
std::string wireNumber(unsigned value);
