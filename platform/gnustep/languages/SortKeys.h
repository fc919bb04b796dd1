#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace platform {

/// Sort keys of many texts: byte strings whose order is that of the texts. Comparing two keys takes
/// a fraction of the time of comparing the texts, and most comparisons need only the first bytes,
/// which lie side by side.
class SortKeys {
 public:
  /// Memory for a key of up to this many bytes, valid until the next call of a method.
  std::span<std::uint8_t> roomFor(std::size_t bytes);

  /// Adds the key of the next text, which has been written into that memory, without a last zero.
  void add(std::size_t bytes);

  /// The numbers of the texts, counted from 0, in the order of their keys; those with the same key
  /// in the order in which they were added. Afterwards nothing can be added.
  std::vector<std::uint32_t> sortedNumbers();

 private:
  struct Key {
    std::uint64_t beginning;  // the first eight bytes as a number, filled up with zeros
    const std::uint8_t *bytes;
    std::uint32_t length;
    std::uint32_t number;
  };

  static bool isLess(const Key &left, const Key &right);

  std::vector<Key> keys_;
  std::vector<std::unique_ptr<std::uint8_t[]>> blocks_;
  std::size_t used_ = 0;  // of the last block
  std::size_t size_ = 0;  // of the last block
};

}  // namespace platform
