#pragma once

#import <AppKit/AppKit.h>

#import "platform/gnustep/menus/KeyboardGrab.h"
#import "platform/gnustep/menus/MenuKeys.h"
#include "platform/gnustep/menus/MenuPress.h"

/// The place of an event of the mouse on the screen.
menus::Point placeOnScreen(NSEvent *event);

/// A menu on the screen, and the press of the mouse that opened it.
struct OpenMenu {
  NSMenu *menu = nil;
  menus::Point place;
  /// The timestamp of the press.
  double seconds = 0;
  /// Whether its release, an event of the mask, is still to come.
  bool isPressed = true;
  NSUInteger releases = NSLeftMouseUpMask;
  /// The index of the selected item, -1 for none, and the area on the screen that belongs to it.
  NSInteger selected = -1;
  menus::Area areaOfSelected;
  /// The index of the first item that is shown.
  NSInteger first = 0;
  /// The window whose keys are meant for the menu, which is to be closed when that is no longer the
  /// key window. Nil: all keys that are pressed while it is open are meant for it.
  NSWindow *owner = nil;
};

/// Follows the mouse and the keyboard while a menu is open that a press of the mouse has opened, as
/// the Mac does: after a click the menu stays open until an item is clicked or chosen by keyboard
/// (see MenuKeys), until Escape, a click elsewhere, or the loss of the keyboard to another window;
/// a press that was held, or moved, chooses by its release.
///
/// Consumes all events of the mouse and the keyboard; the run loop runs in the event tracking mode.
/// Main thread. The owner must outlast it.
class MenuTracking {
 public:
  explicit MenuTracking(const OpenMenu &open);
  ~MenuTracking();
  MenuTracking(const MenuTracking &) = delete;
  MenuTracking &operator=(const MenuTracking &) = delete;

  /// Returns when the menu is to be closed or has been closed: the index of the chosen item, or
  /// NSNotFound.
  NSInteger chosenItem();

 private:
  using Step = MenuKeys::Step;
  /// The button has been down since the press; it has been released and the menu stays open; it has
  /// been pressed again in the open menu.
  enum class Phase { Pressed, Open, PressedAgain };

  NSEvent *nextEvent();
  Step stepFor(NSEvent *event);
  Step stepForPress(menus::Point place);
  Step stepForRelease(NSEvent *event, menus::Point place);
  Step stepForPlatformEvent(NSEvent *event);
  void pointTo(menus::Point place);

  NSInteger itemAt(menus::Point place) const;

  NSMenu *menu_;
  NSMenuView *menuView_;
  NSWindow *owner_;
  NSUInteger releases_;
  NSInteger selected_;
  menus::MenuPress press_;
  MenuKeys keys_;
  KeyboardGrab keyboard_;
  Phase phase_;
  bool hasMouse_ = false;
  bool hadKeyboard_ = false;
};
