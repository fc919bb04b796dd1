#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <vector>

#include "addressbook/EntrySet.h"

/// Entries of UTF-16 units one after the other in one block of memory, and the search for those
/// that contain a string. Unit: how a unit is stored; one that does not fit must not be added.
template <class Unit>
class FoldedText {
 public:
  /// Reserves memory for this many entries with this many units altogether.
  void reserve(std::size_t entries, std::size_t units) {
    units_.reserve(units);
    lengths_.reserve(entries);
    numbers_.reserve(entries);
  }

  void add(std::uint32_t number, std::u16string_view entry) {
    units_.insert(units_.end(), entry.begin(), entry.end());
    lengths_.push_back(static_cast<std::uint32_t>(entry.size()));
    numbers_.push_back(number);
  }

  /// Puts the numbers of the entries that begin with the needle into one set, those of the others
  /// that contain it into the other. The needle: not empty, of units that fit.
  void search(std::u16string_view needle, EntrySet &beginning, EntrySet &containing) const;

  std::size_t bytes() const {
    return units_.capacity() * sizeof(Unit) +
           (lengths_.capacity() + numbers_.capacity()) * sizeof(std::uint32_t);
  }

 private:
  /// How many places are compared without a branch in between, for which the compiler uses vector
  /// instructions, as long as the index of a place within a block is no larger than a unit.
  using PlaceInBlock = std::conditional_t<sizeof(Unit) == 1, std::uint8_t, std::int16_t>;
  static constexpr PlaceInBlock kBlock = 32;

  /// The first place, at `place` or later and before `places`, that has the needle's first unit and
  /// its last in the right distance; `places` when there is none.
  std::size_t candidate(std::size_t place, std::size_t places, std::u16string_view needle) const {
    const auto first = static_cast<Unit>(needle.front());
    const auto last = static_cast<Unit>(needle.back());
    const Unit *const begins = units_.data();
    const Unit *const ends = begins + needle.size() - 1;
    for (; place + kBlock <= places; place += kBlock) {
      PlaceInBlock nearest = kBlock;
      for (PlaceInBlock i = 0; i < kBlock; ++i) {
        const bool isHere = (begins[place + i] == first) & (ends[place + i] == last);
        nearest = std::min(nearest, isHere ? i : kBlock);
      }
      if (nearest < kBlock) return place + static_cast<std::size_t>(nearest);
    }
    while (place < places && (begins[place] != first || ends[place] != last)) ++place;
    return place;
  }

  bool isAt(std::size_t place, std::u16string_view needle) const {
    return std::equal(needle.begin(), needle.end(), units_.data() + place);
  }

  std::vector<Unit> units_;
  std::vector<std::uint32_t> lengths_;
  std::vector<std::uint32_t> numbers_;
};

template <class Unit>
void FoldedText<Unit>::search(std::u16string_view needle, EntrySet &beginning,
                              EntrySet &containing) const {
  if (units_.size() < needle.size()) return;
  const std::size_t places = units_.size() - needle.size() + 1;
  // The entry that the place is in.
  std::size_t entry = 0;
  std::size_t begin = 0;
  std::size_t end = lengths_.front();
  std::size_t place = 0;
  while ((place = candidate(place, places, needle)) < places) {
    while (end <= place) {
      begin = end;
      end += lengths_[++entry];
    }
    if (end - place < needle.size()) {
      // A match from here on would extend into the next entry.
      place = end;
    } else if (!isAt(place, needle)) {
      ++place;
    } else {
      (place == begin ? beginning : containing).insert(numbers_[entry]);
      place = end;
    }
  }
}
