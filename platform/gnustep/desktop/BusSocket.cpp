#include "platform/gnustep/desktop/BusSocket.h"

#include <dbus/dbus.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace platform {
namespace {

/// More than any reply that is asked for. Nothing that is longer is kept.
constexpr std::size_t kLongestMessage = 1 << 20;

/// The daemon's answer before there are messages.
constexpr std::size_t kLongestAnswer = 1024;

/// The address of a socket of this machine; its length is 0 for any other address.
socklen_t addressOf(DBusAddressEntry *entry, sockaddr_un &address) {
  if (std::strcmp(dbus_address_entry_get_method(entry), "unix") != 0) return 0;
  const char *const path = dbus_address_entry_get_value(entry, "path");
  const char *const abstract = dbus_address_entry_get_value(entry, "abstract");
  const std::string_view name = path != nullptr ? path : abstract != nullptr ? abstract : "";
  address = {};
  address.sun_family = AF_UNIX;
  // The name of an abstract socket is after a zero, that of a file in front of one.
  const std::size_t start = path == nullptr ? 1 : 0;
  if (name.empty() || name.size() + 1 > sizeof address.sun_path) return 0;
  std::copy(name.begin(), name.end(), address.sun_path + start);
  return static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size() + 1);
}

/// A connected socket; negative where nobody listens, or whoever listens accepts nobody.
int connected(const sockaddr_un &address, socklen_t length) {
  const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (descriptor < 0) return descriptor;
  if (connect(descriptor, reinterpret_cast<const sockaddr *>(&address), length) == 0) {
    return descriptor;
  }
  close(descriptor);
  return -1;
}

int connectedToAny(const std::string &addresses) {
  DBusAddressEntry **entries = nullptr;
  int count = 0;
  if (dbus_parse_address(addresses.c_str(), &entries, &count, nullptr) == FALSE) return -1;
  int descriptor = -1;
  for (int i = 0; i < count && descriptor < 0; ++i) {
    sockaddr_un address;
    const socklen_t length = addressOf(entries[i], address);
    if (length > 0) descriptor = connected(address, length);
  }
  dbus_address_entries_free(entries);
  return descriptor;
}

void append(std::vector<char> &bytes, std::string_view text) {
  bytes.insert(bytes.end(), text.begin(), text.end());
}

/// Asks to be accepted as this user, whom the kernel tells the daemon: the user's number in decimal
/// digits, each as two hexadecimal ones.
std::string requestForAcceptance() {
  std::string request(1, '\0');
  request += "AUTH EXTERNAL ";
  for (char digit : std::to_string(getuid())) {
    request += '3';
    request += digit;
  }
  return request + "\r\n";
}

}  // namespace

std::unique_ptr<BusSocket> BusSocket::connect(const std::string &addresses) {
  const int descriptor = connectedToAny(addresses);
  if (descriptor < 0) return nullptr;
  return std::unique_ptr<BusSocket>(new BusSocket(descriptor));
}

BusSocket::BusSocket(int descriptor) : descriptor_(descriptor) {
  append(unsent_, requestForAcceptance());
  write();
}

BusSocket::~BusSocket() {
  close(descriptor_);
}

unsigned BusSocket::send(DBusMessage *message) {
  dbus_message_set_serial(message, ++lastNumber_);
  char *bytes = nullptr;
  int length = 0;
  // Short of memory, as everywhere else.
  if (dbus_message_marshal(message, &bytes, &length) == FALSE) std::abort();
  append(isAccepted_ ? unsent_ : waiting_, {bytes, static_cast<std::size_t>(length)});
  dbus_free(bytes);
  // An error is found when something is received.
  write();
  return lastNumber_;
}

bool BusSocket::receive(const std::function<void(DBusMessage *)> &handle) {
  // What arrived in front of the end is handled, too.
  const bool goesOn = read();
  if (!isAccepted_ && !takeAcceptance()) return false;
  if (isAccepted_ && !takeMessages(handle)) return false;
  return write() && goesOn;
}

/// Whether there may be more later.
bool BusSocket::read() {
  std::array<char, 4096> part;
  for (;;) {
    const ssize_t length = recv(descriptor_, part.data(), part.size(), MSG_DONTWAIT);
    if (length > 0) {
      append(arrived_, {part.data(), static_cast<std::size_t>(length)});
      if (arrived_.size() >= kLongestMessage) return true;
    } else if (length < 0 && errno == EINTR) {
      continue;
    } else {
      return length < 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
    }
  }
}

/// Whether the daemon has accepted the connection or may still do so.
bool BusSocket::takeAcceptance() {
  constexpr std::string_view kLineEnd = "\r\n";
  const auto end = std::search(arrived_.begin(), arrived_.end(), kLineEnd.begin(), kLineEnd.end());
  if (end == arrived_.end()) return arrived_.size() < kLongestAnswer;
  const std::string_view line(arrived_.data(), static_cast<std::size_t>(end - arrived_.begin()));
  if (!line.starts_with("OK")) return false;
  arrived_.erase(arrived_.begin(), end + kLineEnd.size());
  isAccepted_ = true;
  append(unsent_, "BEGIN\r\n");
  unsent_.insert(unsent_.end(), waiting_.begin(), waiting_.end());
  waiting_ = {};
  return true;
}

bool BusSocket::takeMessages(const std::function<void(DBusMessage *)> &handle) {
  std::size_t taken = 0;
  for (;;) {
    const char *const bytes = arrived_.data() + taken;
    const std::size_t length = arrived_.size() - taken;
    const int needed = dbus_message_demarshal_bytes_needed(bytes, static_cast<int>(length));
    if (needed < 0 || static_cast<std::size_t>(needed) > kLongestMessage) return false;
    // None yet, or only the beginning of one.
    if (needed == 0 || length < static_cast<std::size_t>(needed)) break;
    DBusMessage *const message = dbus_message_demarshal(bytes, needed, nullptr);
    if (message == nullptr) return false;
    handle(message);
    dbus_message_unref(message);
    taken += static_cast<std::size_t>(needed);
  }
  arrived_.erase(arrived_.begin(), arrived_.begin() + static_cast<std::ptrdiff_t>(taken));
  if (arrived_.empty()) arrived_ = {};
  return true;
}

/// Whether what is left can be sent later.
bool BusSocket::write() {
  std::size_t sent = 0;
  bool goesOn = true;
  while (sent < unsent_.size()) {
    const ssize_t length = ::send(descriptor_, unsent_.data() + sent, unsent_.size() - sent,
                                  MSG_DONTWAIT | MSG_NOSIGNAL);
    if (length > 0) {
      sent += static_cast<std::size_t>(length);
    } else if (errno != EINTR) {
      goesOn = errno == EAGAIN || errno == EWOULDBLOCK;
      break;
    }
  }
  unsent_.erase(unsent_.begin(), unsent_.begin() + static_cast<std::ptrdiff_t>(sent));
  if (unsent_.empty()) unsent_ = {};
  return goesOn;
}

}  // namespace platform
