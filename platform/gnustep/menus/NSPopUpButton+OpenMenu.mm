#import "platform/gnustep/menus/NSPopUpButton+OpenMenu.h"

#include <optional>

#import "platform/gnustep/menus/MenuKeys.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

constinit platform::ReplacedMethod<void(NSRect, NSView *)> platformAttachPopUp;
constinit platform::ReplacedMethod<void()> platformDismissPopUp;
constinit platform::ReplacedMethod<void(NSEvent *)> platformKeyDown;

/// Of the menu that is open.
std::optional<MenuKeys> keysOfOpenMenu;

NSWindow *menuWindowOf(NSPopUpButton *popUp) {
  return [[[popUp menu] menuRepresentation] window];
}

/// The pop-up that is the first responder, if its menu is open.
NSPopUpButton *popUpWithOpenMenu(NSWindow *window) {
  id const responder = [window firstResponder];
  if (![responder isKindOfClass:[NSPopUpButton class]]) return nil;
  return [menuWindowOf(responder) isVisible] ? responder : nil;
}

void deliverKey(NSEvent *event, NSPopUpButton *popUp) {
  if (!keysOfOpenMenu || keysOfOpenMenu->menu() != [popUp menu]) return;
  switch (keysOfOpenMenu->stepFor(event)) {
    case MenuKeys::Step::Continue:
      return;
    case MenuKeys::Step::Close:
      return [[popUp cell] dismissPopUp];
    case MenuKeys::Step::Choose:
      // The action may release the pop-up, as reloading a list does.
      [[popUp retain] autorelease];
      [[popUp menu]
          performActionForItemAtIndex:[[[popUp menu] menuRepresentation] highlightedItemIndex]];
  }
}

}  // namespace

BOOL deliverToOpenMenu(NSEvent *event) {
  switch ([event type]) {
    case NSKeyDown: {
      if (([event modifierFlags] & NSCommandKeyMask) != 0) return NO;
      NSPopUpButton *const popUp = popUpWithOpenMenu([event window]);
      if (popUp != nil) deliverKey(event, popUp);
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
  // The sender of the action, which the cell otherwise learns when it is drawn: keys may open the
  // menu of a row that has just been scrolled to before that.
  [self setControlView:view];
  platformAttachPopUp(self, _cmd, frame, view);
  // The first item of a pull-down menu is the title of the button and not shown.
  keysOfOpenMenu.emplace([self menu], [self pullsDown] ? 1 : 0);
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
  if (keysOfOpenMenu && keysOfOpenMenu->menu() == [self menu]) keysOfOpenMenu.reset();
  const NSInteger selected = [self pullsDown] ? -1 : [self indexOfSelectedItem];
  [[[self menu] menuRepresentation] setHighlightedItemIndex:selected];
}

- (void)closeOpenMenu:(NSNotification *)notification {
  (void)notification;
  [self dismissPopUp];
}

@end

// The platform opens the menu by the space bar only, and moves the highlight of the closed menu by
// the arrows, which changes the title that the button shows but not what is selected.
@interface NSPopUpButton (OpenMenu)
@end

@implementation NSPopUpButton (OpenMenu)

+ (void)load {
  platformKeyDown.install(self, @selector(keyDown:), @selector(openMenuOrKeyDown:));
}

- (void)openMenuOrKeyDown:(NSEvent *)event {
  NSString *const characters = [event charactersIgnoringModifiers];
  const unichar key = [characters length] == 1 ? [characters characterAtIndex:0] : 0;
  const bool isArrow = key == NSUpArrowFunctionKey || key == NSDownArrowFunctionKey;
  if (!isArrow || ![self isEnabled]) return platformKeyDown(self, _cmd, event);
  if ([self numberOfItems] == 0) return NSBeep();
  [[self cell] attachPopUpWithFrame:[self bounds] inView:self];
}

@end
