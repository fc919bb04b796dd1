#import "platform/gnustep/menus/NSPopUpButton+OpenMenu.h"

#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

constinit platform::ReplacedMethod<void(NSRect, NSView *)> platformAttachPopUp;
constinit platform::ReplacedMethod<void()> platformDismissPopUp;

NSWindow *menuWindowOf(NSPopUpButton *popUp) {
  return [[[popUp menu] menuRepresentation] window];
}

/// The pop-up that is the first responder, if its menu is open.
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

@interface NSPopUpButtonCell (OpenMenu)
- (void)closeOpenMenu:(NSNotification *)notification;
@end

// Closes the menu with its window and when the application is hidden. Otherwise it would appear
// again with the application and refer to a deallocated pop-up and window.
@implementation NSPopUpButtonCell (OpenMenu)

+ (void)load {
  platformAttachPopUp.install(self, @selector(attachPopUpWithFrame:inView:),
                              @selector(attachObservedPopUpWithFrame:inView:));
  platformDismissPopUp.install(self, @selector(dismissPopUp), @selector(dismissObservedPopUp));
}

- (void)attachObservedPopUpWithFrame:(NSRect)frame inView:(NSView *)view {
  platformAttachPopUp(self, _cmd, frame, view);
  NSNotificationCenter *const center = [NSNotificationCenter defaultCenter];
  [center addObserver:self
             selector:@selector(closeOpenMenu:)
                 name:NSWindowWillCloseNotification
               object:[view window]];
  [center addObserver:self
             selector:@selector(closeOpenMenu:)
                 name:NSApplicationWillHideNotification
               object:NSApp];
}

/// With the selected item highlighted again: the platform takes a highlighted item for the selected
/// one the next time that it draws the button's title.
- (void)dismissObservedPopUp {
  NSNotificationCenter *const center = [NSNotificationCenter defaultCenter];
  [center removeObserver:self name:NSWindowWillCloseNotification object:nil];
  [center removeObserver:self name:NSApplicationWillHideNotification object:nil];
  platformDismissPopUp(self, _cmd);
  const NSInteger selected = [self pullsDown] ? -1 : [self indexOfSelectedItem];
  [[[self menu] menuRepresentation] setHighlightedItemIndex:selected];
}

- (void)closeOpenMenu:(NSNotification *)notification {
  (void)notification;
  [self dismissPopUp];
}

@end
