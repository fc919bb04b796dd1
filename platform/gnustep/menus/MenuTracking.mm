#import "platform/gnustep/menus/MenuTracking.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <cmath>

namespace {

/// How far the mouse may move during a click.
constexpr double kClickPoints = 4;

/// How often to check, without events, whether the menu is still open and has captured the mouse.
constexpr NSTimeInterval kLookSeconds = 0.1;

constexpr NSUInteger kPressed = NSLeftMouseDownMask | NSRightMouseDownMask | NSOtherMouseDownMask;
constexpr NSUInteger kReleased = NSLeftMouseUpMask | NSRightMouseUpMask | NSOtherMouseUpMask;
constexpr NSUInteger kMoved =
    NSMouseMovedMask | NSLeftMouseDraggedMask | NSRightMouseDraggedMask | NSOtherMouseDraggedMask;

}  // namespace

menus::Point placeOnScreen(NSEvent *event) {
  NSWindow *const window = [event window];
  const NSPoint place = [event locationInWindow];
  const NSPoint point = window == nil ? place : [window convertBaseToScreen:place];
  return {point.x, point.y};
}

MenuTracking::MenuTracking(const OpenMenu &open)
    : menu_([open.menu retain]),
      menuView_([[open.menu menuRepresentation] retain]),
      owner_(open.owner),
      releases_(open.releases),
      selected_(open.selected),
      press_(open.seconds, open.place, open.areaOfSelected,
             {[NSEvent doubleClickInterval], kClickPoints}),
      keys_(open.menu, open.first),
      phase_(open.isPressed ? Phase::Pressed : Phase::Open) {}

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
    if (owner_ == nil) keyboard_.grabFor([menuView_ window]);
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
  if ((kind & NSKeyDownMask) != 0) return keys_.stepFor(event);
  if ((kind & NSAppKitDefinedMask) != 0) return stepForPlatformEvent(event);
  const menus::Point place = placeOnScreen(event);
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
  if (phase == Phase::Pressed && (NSEventMaskFromType([event type]) & releases_) == 0) {
    return Step::Continue;
  }
  phase_ = Phase::Open;
  if (phase == Phase::Pressed && press_.isClickWithReleaseAt([event timestamp], place)) {
    return Step::Continue;
  }
  pointTo(place);
  return keys_.canChoose([menuView_ highlightedItemIndex]) ? Step::Choose : Step::Close;
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
  [menuView_ setHighlightedItemIndex:keys_.canChoose(item) ? item : -1];
}

NSInteger MenuTracking::itemAt(menus::Point place) const {
  const NSPoint inWindow = [[menuView_ window] convertScreenToBase:NSMakePoint(place.x, place.y)];
  return [menuView_ indexOfItemAtPoint:[menuView_ convertPoint:inWindow fromView:nil]];
}
