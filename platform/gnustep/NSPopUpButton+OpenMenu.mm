#import "platform/gnustep/NSPopUpButton+OpenMenu.h"

namespace {

BOOL hasOpenMenu(NSPopUpButton *popUp) {
  return [[[[popUp menu] menuRepresentation] window] isVisible];
}

}  // namespace

BOOL deliverToOpenMenu(NSEvent *event) {
  if ([event type] != NSKeyDown || ([event modifierFlags] & NSCommandKeyMask) != 0) return NO;
  id const responder = [[event window] firstResponder];
  if (![responder isKindOfClass:[NSPopUpButton class]] || !hasOpenMenu(responder)) return NO;
  [responder keyDown:event];
  return YES;
}

void closeMenuOf(NSPopUpButton *popUp) {
  if (hasOpenMenu(popUp)) [[popUp cell] dismissPopUp];
}
