#import "platform/gnustep/NSPopUpButton+OpenMenu.h"

namespace {

NSWindow *menuWindowOf(NSPopUpButton *popUp) {
  return [[[popUp menu] menuRepresentation] window];
}

/// The pop-up that has the window's keyboard, if its menu is open.
NSPopUpButton *popUpWithOpenMenu(NSWindow *window) {
  id const responder = [window firstResponder];
  if (![responder isKindOfClass:[NSPopUpButton class]]) return nil;
  return [menuWindowOf(responder) isVisible] ? responder : nil;
}

}  // namespace

BOOL deliverToOpenMenu(NSEvent *event) {
  switch ([event type]) {
    case NSKeyDown: {
      if (([event modifierFlags] & NSCommandKeyMask) != 0) return NO;
      NSPopUpButton *const popUp = popUpWithOpenMenu([event window]);
      [popUp keyDown:event];
      return popUp != nil;
    }
    case NSLeftMouseDown:
    case NSRightMouseDown:
    case NSOtherMouseDown: {
      NSPopUpButton *const popUp = popUpWithOpenMenu([NSApp keyWindow]);
      if (popUp == nil || [event window] == menuWindowOf(popUp)) return NO;
      [[popUp cell] dismissPopUp];
      return YES;
    }
    default:
      return NO;
  }
}

void closeMenuOf(NSPopUpButton *popUp) {
  // Not by what is visible: the menu of a window that is hidden with its application is still open.
  if ([menuWindowOf(popUp) parentWindow] != nil) [[popUp cell] dismissPopUp];
}
