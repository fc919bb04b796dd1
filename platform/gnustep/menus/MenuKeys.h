#pragma once

#import <AppKit/AppKit.h>

#include "platform/gnustep/menus/TypedLetters.h"

/// What the keys do in an open menu, as on the Mac: arrows, Home, End and the page keys and first
/// letters highlight an item; Return, Enter and the space bar choose it; Escape closes the menu;
/// all others do nothing. Main thread.
class MenuKeys {
 public:
  /// The effect of a key on the menu.
  enum class Step { Continue, Close, Choose };

  /// first: the index of the first item that is shown. The menu must outlast this.
  MenuKeys(NSMenu *menu, NSInteger first);

  /// Moves the highlight. For Choose, the highlighted item is the one that was chosen.
  Step stepFor(NSEvent *event);

  /// Whether there is such an item and the user can choose it. No for -1.
  bool canChoose(NSInteger item) const;

  NSMenu *menu() const { return menu_; }

 private:
  Step stepForLetter(NSEvent *event, unichar letter);
  Step highlight(NSInteger item);
  bool canChoose(NSInteger item, const std::u16string &beginning) const;
  NSInteger nextItem(NSInteger from, NSInteger direction) const;

  NSMenu *menu_;
  NSInteger first_;
  menus::TypedLetters letters_;
};
