#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace platform {

/// The number in the four bytes from `offset` on, which must be there.
inline uint32_t bigEndian(std::span<const uint8_t> bytes, size_t offset) {
  return uint32_t{bytes[offset]} << 24 | uint32_t{bytes[offset + 1]} << 16 |
         uint32_t{bytes[offset + 2]} << 8 | uint32_t{bytes[offset + 3]};
}

}  // namespace platform
