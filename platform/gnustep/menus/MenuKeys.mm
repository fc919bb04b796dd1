#import "platform/gnustep/menus/MenuKeys.h"

namespace {

constexpr unichar kEscape = 0x1B;

/// Without case and marks. The platform's searches that ignore both find nothing.
NSString *folded(NSString *text) {
  NSString *const decomposed = [[text decomposedStringWithCanonicalMapping] lowercaseString];
  NSArray *const parts =
      [decomposed componentsSeparatedByCharactersInSet:[NSCharacterSet nonBaseCharacterSet]];
  return [parts componentsJoinedByString:@""];
}

}  // namespace

MenuKeys::MenuKeys(NSMenu *menu, NSInteger first)
    : menu_(menu),
      first_(first),
      letters_(static_cast<int>([menu numberOfItems]),
               [this](int item, const std::u16string &text) { return canChoose(item, text); }) {}

MenuKeys::Step MenuKeys::stepFor(NSEvent *event) {
  NSString *const characters = [event charactersIgnoringModifiers];
  const unichar key = [characters length] == 1 ? [characters characterAtIndex:0] : 0;
  const NSInteger current = [[menu_ menuRepresentation] highlightedItemIndex];
  const NSInteger count = [menu_ numberOfItems];
  switch (key) {
    case kEscape:
      return Step::Close;
    case ' ':
      if (letters_.canContinue(key, [event timestamp])) return stepForLetter(event, key);
      [[fallthrough]];
    case NSCarriageReturnCharacter:
    case NSNewlineCharacter:
    case NSEnterCharacter:
      return canChoose(current) ? Step::Choose : Step::Close;
    case NSUpArrowFunctionKey:
      return highlight(nextItem(current < 0 ? count : current, -1));
    case NSDownArrowFunctionKey:
      return highlight(nextItem(current, 1));
    case NSHomeFunctionKey:
    case NSPageUpFunctionKey:
      return highlight(nextItem(-1, 1));
    case NSEndFunctionKey:
    case NSPageDownFunctionKey:
      return highlight(nextItem(count, -1));
    default:
      return key == 0 ? Step::Continue : stepForLetter(event, key);
  }
}

MenuKeys::Step MenuKeys::stepForLetter(NSEvent *event, unichar letter) {
  const int highlighted = static_cast<int>([[menu_ menuRepresentation] highlightedItemIndex]);
  const auto item = letters_.itemFor(letter, [event timestamp], highlighted);
  return item ? highlight(*item) : Step::Continue;
}

/// Nothing for an item that cannot be chosen.
MenuKeys::Step MenuKeys::highlight(NSInteger item) {
  if (canChoose(item)) [[menu_ menuRepresentation] setHighlightedItemIndex:item];
  return Step::Continue;
}

bool MenuKeys::canChoose(NSInteger item) const {
  if (item < first_ || item >= [menu_ numberOfItems]) return false;
  NSMenuItem *const menuItem = static_cast<NSMenuItem *>([menu_ itemAtIndex:item]);
  return [menuItem isEnabled] && ![menuItem isSeparatorItem];
}

bool MenuKeys::canChoose(NSInteger item, const std::u16string &beginning) const {
  if (!canChoose(item)) return false;
  NSString *const text =
      [NSString stringWithCharacters:reinterpret_cast<const unichar *>(beginning.data())
                              length:beginning.size()];
  return [folded([[menu_ itemAtIndex:item] title]) hasPrefix:folded(text)];
}

/// The next item that can be chosen; -1 when there is none.
NSInteger MenuKeys::nextItem(NSInteger from, NSInteger direction) const {
  const NSInteger count = [menu_ numberOfItems];
  for (NSInteger item = from + direction; item >= 0 && item < count; item += direction) {
    if (canChoose(item)) return item;
  }
  return -1;
}
