#import "platform/gnustep/NSPopUpButton+OpenMenu.h"

namespace {

NSWindow *menuWindowOf(NSPopUpButton *popUp) {
  return [[[popUp menu] menuRepresentation] window];
}

}  // namespace

BOOL deliverToOpenMenu(NSEvent *event) {
  if ([event type] != NSKeyDown || ([event modifierFlags] & NSCommandKeyMask) != 0) return NO;
  id const responder = [[event window] firstResponder];
  if (![responder isKindOfClass:[NSPopUpButton class]]) return NO;
  if (![menuWindowOf(responder) isVisible]) return NO;
  [responder keyDown:event];
  return YES;
}

void closeMenuOf(NSPopUpButton *popUp) {
  // Not by what is visible: the menu of a window that is hidden with its application is still open.
  if ([menuWindowOf(popUp) parentWindow] != nil) [[popUp cell] dismissPopUp];
}
