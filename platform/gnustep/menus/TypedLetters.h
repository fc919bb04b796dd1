#pragma once

#include <functional>
#include <optional>
#include <string>

/// Interprets letters that are typed while a menu is open: as on the Mac they choose the item that
/// begins with them.
namespace menus {

class TypedLetters {
 public:
  /// Whether the item can be chosen and begins with the text.
  using Begins = std::function<bool(int item, const std::u16string &text)>;

  /// items: how many the menu has, from 0.
  TypedLetters(int items, Begins begins);

  /// The item to highlight after a letter; nothing when no item fits, and then the letter is
  /// ignored. Letters that follow each other within a second form a text, for which the search
  /// begins at the highlighted item; the same letter again goes on to the next item with it.
  ///
  /// letter: UTF-16. seconds: the timestamp of the event, on any clock. highlighted: -1 for none.
  std::optional<int> itemFor(char16_t letter, double seconds, int highlighted);

  /// Whether a text has been begun that the letter, such as a blank, continues. No effect.
  bool canContinue(char16_t letter, double seconds) const;

 private:
  std::optional<int> find(const std::u16string &text, int from) const;
  std::u16string textAt(double seconds) const;

  int items_;
  Begins begins_;
  std::u16string text_;
  double lastSeconds_ = 0;
};

}  // namespace menus
