#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "addressbook/CaseFolding.h"
#include "addressbook/EntrySet.h"
#include "addressbook/FoldedText.h"

/// Finds in a large address book the entries that hold what is being typed: all their text lies in
/// one piece, with letter case already taken out, so that a search is one pass over memory. Text of
/// western languages takes one byte a unit.
/// Strings are UTF-16. Not synchronised: one thread at a time, whichever.
class CompletionIndex {
 public:
  /// Numbers of entries, counted from 0 in the order in which they were added.
  struct Matches {
    EntrySet beginning;                    // entries that begin with the substring
    EntrySet containing;                   // entries that contain it only further on
    std::vector<std::uint32_t> undecided;  // entries that only the platform can judge
  };

  /// folding: must outlive the index.
  explicit CompletionIndex(const CaseFolding &folding) : folding_(folding) {}

  /// Makes room for this many entries with this many units altogether, ahead of adding them.
  void reserve(std::size_t entries, std::size_t units);

  /// Adds an entry behind the others; takes as long as the entry is, however many there are.
  void add(std::u16string_view entry);

  /// How many were added.
  std::size_t size() const { return size_; }

  /// Compares a substring with all entries, ignoring case. An entry or a substring with a unit that
  /// the folding does not decide makes the entry undecided, and so does the empty substring unless
  /// all units are decided: every entry then begins with it.
  Matches matches(std::u16string_view substring) const;

  /// How much memory the index takes.
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
