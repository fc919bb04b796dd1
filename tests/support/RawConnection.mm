#import "tests/support/RawConnection.h"

#import <Foundation/Foundation.h>

#include <algorithm>
#include <fstream>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr unsigned kMessageFrame = 3;
constexpr unsigned kIntroductionFrame = 1;

}  // namespace

RawConnection::RawConnection(const std::string &name)
    : socket_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  const std::string path = socketOf(name);
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  connected_ = connect(socket_, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0;
}

RawConnection::~RawConnection() {
  close(socket_);
}

void RawConnection::say(const std::string &bytes) const {
  send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
}

std::string RawConnection::socketOf(const std::string &name) {
  // The platform has a file for each name, with the socket's path in its first line.
  @autoreleasepool {
    NSString *const file = [[NSData dataWithBytes:name.data()
                                           length:name.size()] base64EncodedStringWithOptions:0];
    NSString *const path = [[NSTemporaryDirectory()
        stringByAppendingPathComponent:@"NSMessagePort/names"] stringByAppendingPathComponent:file];
    std::ifstream content([path fileSystemRepresentation]);
    std::string line;
    std::getline(content, line);
    return line;
  }
}

std::string wireNumber(unsigned value) {
  return {static_cast<char>(value >> 24), static_cast<char>(value >> 16),
          static_cast<char>(value >> 8), static_cast<char>(value)};
}

std::string introduction() {
  const std::string port = std::string("\0", 1) + "/nowhere" + std::string("\0", 1);
  return wireNumber(kIntroductionFrame) + wireNumber(static_cast<unsigned>(port.size())) + port;
}

std::string wireMessage(unsigned identifier, unsigned items, const std::string &content) {
  constexpr unsigned kHeadSize = 8;
  return wireNumber(kMessageFrame) + wireNumber(static_cast<unsigned>(kHeadSize + content.size())) +
         wireNumber(identifier) + wireNumber(items) + content;
}
