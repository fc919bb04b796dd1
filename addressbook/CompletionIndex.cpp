#include "addressbook/CompletionIndex.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

bool isNarrow(std::u16string_view text) {
  return std::all_of(text.begin(), text.end(), [](char16_t unit) {
    return unit <= std::numeric_limits<std::uint8_t>::max();
  });
}

std::vector<std::uint32_t> upTo(std::size_t count) {
  std::vector<std::uint32_t> numbers(count);
  std::iota(numbers.begin(), numbers.end(), 0U);
  return numbers;
}

}  // namespace

std::u16string CompletionIndex::folded(std::u16string_view text) const {
  std::u16string result(text.size(), u'\0');
  std::transform(text.begin(), text.end(), result.begin(),
                 [this](char16_t unit) { return folding_(unit); });
  return result;
}

bool CompletionIndex::covers(std::u16string_view text) const {
  return std::all_of(text.begin(), text.end(),
                     [this](char16_t unit) { return folding_.covers(unit); });
}

void CompletionIndex::reserve(std::size_t entries, std::size_t units) {
  narrow_.reserve(entries, units);
}

void CompletionIndex::add(std::u16string_view entry) {
  const std::uint32_t number = size_++;
  if (!covers(entry)) {
    odd_.push_back(number);
    return;
  }
  const std::u16string text = folded(entry);
  if (isNarrow(text)) {
    narrow_.add(number, text);
  } else {
    wide_.add(number, text);
  }
}

CompletionIndex::Matches CompletionIndex::matches(std::u16string_view substring) const {
  Matches matches{EntrySet(size_), EntrySet(size_), {}};
  if (!covers(substring) || (substring.empty() && !folding_.coversAll())) {
    matches.undecided = upTo(size_);
  } else if (substring.empty()) {
    for (std::uint32_t number = 0; number < size_; ++number) matches.beginning.insert(number);
  } else {
    matches.undecided = odd_;
    const std::u16string needle = folded(substring);
    if (isNarrow(needle)) narrow_.search(needle, matches.beginning, matches.containing);
    wide_.search(needle, matches.beginning, matches.containing);
  }
  return matches;
}

std::size_t CompletionIndex::bytes() const {
  return sizeof *this + narrow_.bytes() + wide_.bytes() + odd_.capacity() * sizeof odd_.front();
}
