#import "platform/gnustep/menus/MenuTracking.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <cmath>

namespace {

constexpr unichar kEscape = 0x1B;

/// How far the mouse may move during a click.
constexpr double kClickPoints = 4;

/// How often to check, without events, whether the menu is still open and has captured the mouse.
constexpr NSTimeInterval kLookSeconds = 0.1;

constexpr NSUInteger kPressed = NSLeftMouseDownMask | NSRightMouseDownMask | NSOtherMouseDownMask;
constexpr NSUInteger kReleased = NSLeftMouseUpMask | NSRightMouseUpMask | NSOtherMouseUpMask;
constexpr NSUInteger kMoved =
    NSMouseMovedMask | NSLeftMouseDraggedMask | NSRightMouseDraggedMask | NSOtherMouseDraggedMask;

menus::Point onScreen(NSEvent *event) {
  NSWindow *const window = [event window];
  const NSPoint place = [event locationInWindow];
  const NSPoint point = window == nil ? place : [window convertBaseToScreen:place];
  return {point.x, point.y};
}

menus::Area onScreen(NSView *view, NSRect rect) {
  rect = [view convertRect:rect toView:nil];
  const NSPoint origin = [[view window] convertBaseToScreen:rect.origin];
  return {origin.x, origin.y, NSWidth(rect), NSHeight(rect)};
}

/// How far the centres of a button and of the item over it may be apart.
constexpr double kAlignedPoints = 1;

bool isOver(const menus::Area &item, const menus::Area &button) {
  const double apart = (item.y + item.height / 2) - (button.y + button.height / 2);
  return std::abs(apart) <= kAlignedPoints;
}

/// The area that belongs to the selected item of a menu that was opened by a press: the button, if
/// the item lies over it. At the edge of the screen the menu may be shifted, and the area is empty.
menus::Area areaOfSelectedItem(NSPopUpButtonCell *cell, const menus::Area &button) {
  if ([cell pullsDown]) return button;
  const NSInteger selected = [cell indexOfSelectedItem];
  if (selected < 0) return {};
  NSMenuView *const menuView = [[cell menu] menuRepresentation];
  const menus::Area item = onScreen(menuView, [menuView rectOfItemAtIndex:selected]);
  return isOver(item, button) ? button : menus::Area();
}

}  // namespace

MenuTracking::MenuTracking(NSPopUpButtonCell *cell, NSRect buttonFrame, NSView *view,
                           NSEvent *press)
    : cell_(cell),
      menu_([[cell menu] retain]),
      menuView_([[menu_ menuRepresentation] retain]),
      owner_([view window]),
      selected_([cell pullsDown] ? -1 : [cell indexOfSelectedItem]),
      press_([press timestamp], onScreen(press),
             areaOfSelectedItem(cell, onScreen(view, buttonFrame)),
             { [NSEvent doubleClickInterval], kClickPoints }) {}

MenuTracking::~MenuTracking() {
  if (hasMouse_) [GSCurrentServer() releasemouse];
  [menuView_ release];
  [menu_ release];
}

NSInteger MenuTracking::chosenItem() {
  [menuView_ setHighlightedItemIndex:selected_];
  while ([[menuView_ window] isVisible]) {
    // Fails until the window server has mapped the menu.
    if (!hasMouse_) {
      hasMouse_ = [GSCurrentServer() capturemouse:[[menuView_ window] windowNumber]] != NO;
    }
    @autoreleasepool {
      NSEvent *const event = nextEvent();
      switch (event == nil ? Step::Continue : stepFor(event)) {
        case Step::Continue:
          break;
        case Step::Close:
          return NSNotFound;
        case Step::Choose:
          return [menuView_ highlightedItemIndex];
      }
    }
    const bool hasKeyboard = [owner_ isKeyWindow] != NO;
    if (hadKeyboard_ && !hasKeyboard) return NSNotFound;
    hadKeyboard_ = hasKeyboard;
  }
  return NSNotFound;
}

NSEvent *MenuTracking::nextEvent() {
  constexpr NSUInteger kTaken =
      kPressed | kReleased | kMoved | NSKeyDownMask | NSScrollWheelMask | NSAppKitDefinedMask;
  return [NSApp nextEventMatchingMask:kTaken
                            untilDate:[NSDate dateWithTimeIntervalSinceNow:kLookSeconds]
                               inMode:NSEventTrackingRunLoopMode
                              dequeue:YES];
}

MenuTracking::Step MenuTracking::stepFor(NSEvent *event) {
  const NSUInteger kind = NSEventMaskFromType([event type]);
  if ((kind & NSKeyDownMask) != 0) return stepForKey(event);
  if ((kind & NSAppKitDefinedMask) != 0) return stepForPlatformEvent(event);
  const menus::Point place = onScreen(event);
  if ((kind & kPressed) != 0) return stepForPress(place);
  if ((kind & kReleased) != 0) return stepForRelease(event, place);
  if ((kind & kMoved) != 0) {
    // The mouse moves without a button pressed, so the release was lost.
    if ([event type] == NSMouseMoved) phase_ = Phase::Open;
    pointTo(place);
  }
  return Step::Continue;
}

MenuTracking::Step MenuTracking::stepForPress(menus::Point place) {
  pointTo(place);
  const NSRect frame = [[menuView_ window] frame];
  const menus::Area menu = {NSMinX(frame), NSMinY(frame), NSWidth(frame), NSHeight(frame)};
  if (!menu.contains(place) && !press_.isOverSelectedItem()) return Step::Close;
  phase_ = Phase::PressedAgain;
  return Step::Continue;
}

MenuTracking::Step MenuTracking::stepForRelease(NSEvent *event, menus::Point place) {
  const Phase phase = phase_;
  // The release of an earlier press.
  if (phase == Phase::Open) return Step::Continue;
  if (phase == Phase::Pressed && [event type] != NSLeftMouseUp) return Step::Continue;
  phase_ = Phase::Open;
  if (phase == Phase::Pressed && press_.isClickWithReleaseAt([event timestamp], place)) {
    return Step::Continue;
  }
  pointTo(place);
  return canChoose([menuView_ highlightedItemIndex]) ? Step::Choose : Step::Close;
}

MenuTracking::Step MenuTracking::stepForKey(NSEvent *event) {
  NSString *const characters = [event charactersIgnoringModifiers];
  const unichar key = [characters length] == 1 ? [characters characterAtIndex:0] : 0;
  const NSInteger current = [menuView_ highlightedItemIndex];
  switch (key) {
    case kEscape:
      return Step::Close;
    case ' ':
    case NSCarriageReturnCharacter:
    case NSNewlineCharacter:
    case NSEnterCharacter:
      return canChoose(current) ? Step::Choose : Step::Close;
    case NSUpArrowFunctionKey:
      [menuView_
          setHighlightedItemIndex:nextItem(current < 0 ? [menu_ numberOfItems] : current, -1)];
      return Step::Continue;
    case NSDownArrowFunctionKey:
      [menuView_ setHighlightedItemIndex:nextItem(current, 1)];
      return Step::Continue;
    default:
      return Step::Continue;
  }
}

MenuTracking::Step MenuTracking::stepForPlatformEvent(NSEvent *event) {
  // Closing a window may deallocate the pop-up, which is in use here.
  if ([event subtype] == GSAppKitWindowClose) {
    [NSApp postEvent:event atStart:YES];
    return Step::Close;
  }
  [NSApp sendEvent:event];
  return Step::Continue;
}

void MenuTracking::pointTo(menus::Point place) {
  press_.moveTo(place);
  const NSInteger item = press_.isOverSelectedItem() ? selected_ : itemAt(place);
  [menuView_ setHighlightedItemIndex:canChoose(item) ? item : -1];
}

NSInteger MenuTracking::itemAt(menus::Point place) const {
  const NSPoint inWindow = [[menuView_ window] convertScreenToBase:NSMakePoint(place.x, place.y)];
  return [menuView_ indexOfItemAtPoint:[menuView_ convertPoint:inWindow fromView:nil]];
}

bool MenuTracking::canChoose(NSInteger item) const {
  if (item < 0 || item >= [menu_ numberOfItems]) return false;
  NSMenuItem *const menuItem = static_cast<NSMenuItem *>([menu_ itemAtIndex:item]);
  return [menuItem isEnabled] && ![menuItem isSeparatorItem];
}

/// The next item that can be chosen, or `from` when there is none.
NSInteger MenuTracking::nextItem(NSInteger from, NSInteger direction) const {
  // The first item of a pull-down menu is the title of the button and not shown.
  const NSInteger first = [cell_ pullsDown] ? 1 : 0;
  for (NSInteger item = from + direction; item >= first && item < [menu_ numberOfItems];
       item += direction) {
    if (canChoose(item)) return item;
  }
  return from < [menu_ numberOfItems] ? from : -1;
}
