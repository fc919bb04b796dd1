#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct DBusMessage;

namespace platform {

/// A connection to a D-Bus daemon of this machine that never waits: what cannot be sent at once is
/// sent as soon as something arrives, and a daemon that accepts nobody is none. The library's own
/// connections wait for a daemon that hangs. For one thread.
class BusSocket {
 public:
  /// Connects to the first of the addresses, as the bus writes them, where a daemon listens on a
  /// socket of this machine, and asks to be accepted. Null where there is none.
  static std::unique_ptr<BusSocket> connect(const std::string &addresses);

  ~BusSocket();
  BusSocket(const BusSocket &) = delete;
  BusSocket &operator=(const BusSocket &) = delete;

  /// Becomes readable when receive has something to do.
  int descriptor() const { return descriptor_; }

  /// Gives the message a number and sends it, after the daemon has accepted the connection; returns
  /// the number.
  unsigned send(DBusMessage *message);

  /// Hands over the messages that have arrived, which live as long as the call. False when the
  /// connection has ended, or something arrived that is no message: then the descriptor may not be
  /// used any more.
  bool receive(const std::function<void(DBusMessage *)> &handle);

 private:
  explicit BusSocket(int descriptor);
  bool read();
  bool takeAcceptance();
  bool takeMessages(const std::function<void(DBusMessage *)> &handle);
  bool write();

  int descriptor_;
  bool isAccepted_ = false;
  unsigned lastNumber_ = 0;
  std::vector<char> arrived_;
  std::vector<char> unsent_;
  /// To be sent once the connection is accepted.
  std::vector<char> waiting_;
};

}  // namespace platform
