#include "platform/gnustep/menus/TypedLetters.h"

#include <utility>

namespace menus {

namespace {

constexpr double kPauseSeconds = 1;

}  // namespace

TypedLetters::TypedLetters(int items, Begins begins) : items_(items), begins_(std::move(begins)) {}

/// What has been typed before, empty after a pause.
std::u16string TypedLetters::textAt(double seconds) const {
  return seconds - lastSeconds_ <= kPauseSeconds ? text_ : std::u16string();
}

std::optional<int> TypedLetters::find(const std::u16string &text, int from) const {
  for (int i = 0; i < items_; ++i) {
    const int item = (from + i) % items_;
    if (begins_(item, text)) return item;
  }
  return {};
}

std::optional<int> TypedLetters::itemFor(char16_t letter, double seconds, int highlighted) {
  const std::u16string before = textAt(seconds);
  std::u16string text = before + letter;
  std::optional<int> found =
      find(text, highlighted < 0 || before.empty() ? highlighted + 1 : highlighted);
  if (!found && before == std::u16string(1, letter)) {
    text = before;
    found = find(text, highlighted + 1);
  }
  if (found) {
    text_ = text;
    lastSeconds_ = seconds;
  }
  return found;
}

bool TypedLetters::canContinue(char16_t letter, double seconds) const {
  const std::u16string before = textAt(seconds);
  return !before.empty() && find(before + letter, 0).has_value();
}

}  // namespace menus
