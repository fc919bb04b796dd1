#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

/// A set of entry numbers, one bit for each entry of the book.
class EntrySet {
 public:
  /// Empty; for numbers below `entries`.
  explicit EntrySet(std::size_t entries) : words_((entries + kBits - 1) / kBits) {}

  void insert(std::uint32_t number) {
    words_[number / kBits] |= std::uint64_t{1} << number % kBits;
  }

  std::size_t count() const {
    std::size_t count = 0;
    for (const std::uint64_t word : words_) count += static_cast<std::size_t>(std::popcount(word));
    return count;
  }

  /// Appends the numbers in ascending order.
  void appendTo(std::vector<std::uint32_t> &numbers) const {
    for (std::size_t i = 0; i < words_.size(); ++i) {
      for (std::uint64_t word = words_[i]; word != 0; word &= word - 1) {
        numbers.push_back(static_cast<std::uint32_t>(i * kBits) +
                          static_cast<std::uint32_t>(std::countr_zero(word)));
      }
    }
  }

 private:
  static constexpr std::size_t kBits = 64;

  std::vector<std::uint64_t> words_;
};
