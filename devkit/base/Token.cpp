#include "devkit/base/Token.h"

#include <sys/random.h>

#include <array>
#include <cerrno>
#include <stdexcept>

namespace devkit {

std::string unguessableToken() {
  std::array<unsigned char, 16> bytes;
  while (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
    if (errno != EINTR) throw std::runtime_error("no random numbers");

  constexpr char digits[] = "0123456789abcdef";
  std::string token;
  for (const unsigned char byte : bytes) {
    token += digits[byte >> 4];
    token += digits[byte & 15];
  }
  return token;
}

}  // namespace devkit
