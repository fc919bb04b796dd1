#pragma once

#include <cstddef>
#include <string>

/// Which UTF-16 units are equal when letter case is ignored, for units that can be compared one by
/// one. Immutable; any thread.
class CaseFolding {
 public:
  /// Covers printable ASCII, on which all platforms agree. Of other units a platform may compare
  /// two with one, or one with two.
  CaseFolding();

  /// Covers all units. folded: for each of the 65,536 units the unit that it is folded to.
  explicit CaseFolding(std::u16string folded);

  /// Whether the unit can be folded.
  bool covers(char16_t unit) const {
    return unit >= first_ && static_cast<std::size_t>(unit - first_) < folded_.size();
  }
  bool coversAll() const;

  /// The folded form of a unit that is covered. Two units are the same letter when it is equal.
  char16_t operator()(char16_t unit) const {
    return folded_[static_cast<std::size_t>(unit - first_)];
  }

 private:
  char16_t first_;
  std::u16string folded_;
};
