#pragma once

#import <AppKit/AppKit.h>

#include "platform/gnustep/menus/MenuPress.h"

/// Follows the mouse and the keyboard while the menu of a pop-up button is open that a press of the
/// mouse has opened, as the Mac does: after a click the menu stays open until an item is clicked or
/// chosen by keyboard, until Escape, a click elsewhere, or the loss of the keyboard to another
/// window; a press that was held, or moved, chooses by its release.
///
/// Consumes all events of the mouse and the keyboard; the run loop runs in the event tracking mode.
/// Main thread. The cell, the view and their window must outlast it.
class MenuTracking {
 public:
  /// cell: its menu is open. buttonFrame: in the view. press: the event that opened the menu, of
  /// the view's window.
  MenuTracking(NSPopUpButtonCell *cell, NSRect buttonFrame, NSView *view, NSEvent *press);
  ~MenuTracking();
  MenuTracking(const MenuTracking &) = delete;
  MenuTracking &operator=(const MenuTracking &) = delete;

  /// Returns when the menu is to be closed or has been closed: the index of the chosen item, or
  /// NSNotFound.
  NSInteger chosenItem();

 private:
  /// The effect of an event on the menu.
  enum class Step { Continue, Close, Choose };
  /// The button has been down since the press; it has been released and the menu stays open; it has
  /// been pressed again in the open menu.
  enum class Phase { Pressed, Open, PressedAgain };

  NSEvent *nextEvent();
  Step stepFor(NSEvent *event);
  Step stepForPress(menus::Point place);
  Step stepForRelease(NSEvent *event, menus::Point place);
  Step stepForKey(NSEvent *event);
  Step stepForPlatformEvent(NSEvent *event);
  void pointTo(menus::Point place);

  NSInteger itemAt(menus::Point place) const;
  bool canChoose(NSInteger item) const;
  NSInteger nextItem(NSInteger from, NSInteger direction) const;

  NSPopUpButtonCell *cell_;
  NSMenu *menu_;
  NSMenuView *menuView_;
  NSWindow *owner_;
  NSInteger selected_;
  menus::MenuPress press_;
  Phase phase_ = Phase::Pressed;
  bool hasMouse_ = false;
  bool hadKeyboard_ = false;
};
