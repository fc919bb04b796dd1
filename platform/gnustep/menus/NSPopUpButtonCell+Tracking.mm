#import <AppKit/AppKit.h>

#include <cmath>

#import "platform/gnustep/menus/MenuTracking.h"

namespace {

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

OpenMenu openedMenu(NSPopUpButtonCell *cell, NSRect buttonFrame, NSView *view, NSEvent *press) {
  const bool pullsDown = [cell pullsDown] != NO;
  return {.menu = [cell menu],
          .place = placeOnScreen(press),
          .seconds = [press timestamp],
          .selected = pullsDown ? -1 : [cell indexOfSelectedItem],
          .areaOfSelected = areaOfSelectedItem(cell, onScreen(view, buttonFrame)),
          // The first item of a pull-down menu is the title of the button and not shown.
          .first = pullsDown ? 1 : 0,
          .owner = [view window]};
}

}  // namespace

// On the Mac a click on a pop-up button opens its menu and leaves it open. The platform's own
// tracking closes it at the first release, and chooses the item that happens to lie under the
// mouse, which at the button's edge is not the one whose title the button shows.
//
// Replacing the platform's own methods is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSPopUpButtonCell (Tracking)

/// NO when nothing was chosen.
- (BOOL)trackMouse:(NSEvent *)event
            inRect:(NSRect)frame
            ofView:(NSView *)view
      untilMouseUp:(BOOL)untilMouseUp {
  (void)untilMouseUp;
  if (![self isEnabled]) return NO;
  if ([[self menu] numberOfItems] == 0) {
    NSBeep();
    return NO;
  }
  // The action may release the pop-up, as reloading a list does.
  [[self retain] autorelease];
  [[view retain] autorelease];
  // It may have been opened by keyboard.
  [self dismissPopUp];
  [self attachPopUpWithFrame:frame inView:view];
  const NSInteger chosen = MenuTracking(openedMenu(self, frame, view, event)).chosenItem();
  [self dismissPopUp];
  if (chosen == NSNotFound) return NO;
  // Before the action, which may take a while.
  [self selectItemAtIndex:chosen];
  [self synchronizeTitleAndSelectedItem];
  [[self menu] performActionForItemAtIndex:chosen];
  return YES;
}

@end
