#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "addressbook/CaseFolding.h"
#include "addressbook/EntrySet.h"
#include "addressbook/FoldedText.h"

/// Finds in a large address book the entries that contain what is being typed. The text of all
/// entries is stored in one block of memory with letter case already folded, so that a search is
/// one pass over it. Text of western languages takes one byte a unit. Strings are UTF-16. Not
/// synchronised: may be used on any thread, but not on two at a time.
class CompletionIndex {
 public:
  /// Numbers of entries, counted from 0 in the order in which they were added.
  struct Matches {
    EntrySet beginning;                    // entries that begin with the substring
    EntrySet containing;                   // entries that contain it only further on
    std::vector<std::uint32_t> undecided;  // entries that only the platform can compare
  };

  /// folding: must outlive the index.
  explicit CompletionIndex(const CaseFolding &folding) : folding_(folding) {}

  /// Reserves memory for this many entries with this many units altogether.
  void reserve(std::size_t entries, std::size_t units);

  /// Adds an entry after the others, in time proportional to its length.
  void add(std::u16string_view entry);

  /// How many were added.
  std::size_t size() const { return size_; }

  /// Compares a substring with all entries, ignoring case. An entry is undecided when it or the
  /// substring has a unit that the folding does not cover; for the empty substring, when the
  /// folding does not cover all units. Otherwise every entry begins with the empty substring.
  Matches matches(std::u16string_view substring) const;

  /// The memory that the index takes, in bytes.
  std::size_t bytes() const;

 private:
  bool covers(std::u16string_view text) const;
  std::u16string folded(std::u16string_view text) const;

  const CaseFolding &folding_;
  FoldedText<std::uint8_t> narrow_;  // entries all of whose folded units fit into a byte
  FoldedText<char16_t> wide_;        // the other ones that are decided
  std::vector<std::uint32_t> odd_;   // the undecided ones
  std::uint32_t size_ = 0;
};
