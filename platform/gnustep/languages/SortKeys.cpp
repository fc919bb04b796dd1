#include "platform/gnustep/languages/SortKeys.h"

#include <algorithm>
#include <cstring>

namespace platform {
namespace {

constexpr std::size_t kBlockBytes = 1U << 20;

std::uint64_t beginningOf(std::span<const std::uint8_t> key) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < sizeof number; ++i) {
    number = number << 8 | (i < key.size() ? key[i] : 0U);
  }
  return number;
}

}  // namespace

std::span<std::uint8_t> SortKeys::roomFor(std::size_t bytes) {
  if (size_ - used_ < bytes) {
    size_ = std::max(kBlockBytes, bytes);
    used_ = 0;
    blocks_.emplace_back(new std::uint8_t[size_]);
  }
  return {blocks_.back().get() + used_, size_ - used_};
}

void SortKeys::add(std::size_t bytes) {
  const std::uint8_t *const key = blocks_.back().get() + used_;
  keys_.push_back({.beginning = beginningOf({key, bytes}),
                   .bytes = key,
                   .length = static_cast<std::uint32_t>(bytes),
                   .number = static_cast<std::uint32_t>(keys_.size())});
  used_ += bytes;
}

bool SortKeys::isLess(const Key &left, const Key &right) {
  if (left.beginning != right.beginning) return left.beginning < right.beginning;
  const int order = std::memcmp(left.bytes, right.bytes, std::min(left.length, right.length));
  if (order != 0) return order < 0;
  if (left.length != right.length) return left.length < right.length;
  return left.number < right.number;
}

std::vector<std::uint32_t> SortKeys::sortedNumbers() {
  std::sort(keys_.begin(), keys_.end(), isLess);
  std::vector<std::uint32_t> numbers(keys_.size());
  std::transform(keys_.begin(), keys_.end(), numbers.begin(),
                 [](const Key &key) { return key.number; });
  return numbers;
}

}  // namespace platform
