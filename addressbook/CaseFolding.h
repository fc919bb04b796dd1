#pragma once

#include <cstddef>
#include <string>

/// Which UTF-16 units are the same when letter case is ignored, for units that can be compared one
/// by one. Immutable; any thread.
class CaseFolding {
 public:
  /// Printable ASCII, where every platform agrees. All other units are uncovered: a platform may
  /// take two of them for one letter, or one for two.
  CaseFolding();

  /// All units. folded: for each of the 65,536 units the one that stands for it and for every unit
  /// that is the same letter.
  explicit CaseFolding(std::u16string folded);

  /// Whether this knows all there is to know about the unit.
  bool covers(char16_t unit) const {
    return unit >= first_ && static_cast<std::size_t>(unit - first_) < folded_.size();
  }
  bool coversAll() const;

  /// What stands for a unit that is covered; two units are the same letter when it is equal.
  char16_t operator()(char16_t unit) const {
    return folded_[static_cast<std::size_t>(unit - first_)];
  }

 private:
  char16_t first_;
  std::u16string folded_;
};
