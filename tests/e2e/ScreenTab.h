#pragma once

#include "tests/e2e/Screen.h"

/// A tab of one of the two windows, used with real keys and clicks. Both windows have the same tab
/// view in the same place.
///
/// A control is named by its frame in the interface file, in the tab's own coordinates, of which y
/// runs upwards.
struct ScreenTab {
  /// The window that is used; without a number when none was seen.
  ScreenWindow window;

  /// Where a control is on the screen.
  ScreenArea onScreen(const ScreenArea &frame) const;

  /// Clicks on a control.
  void click(const ScreenArea &frame) const;

  /// Clicks on a box and waits until that shows.
  void toggle(const ScreenArea &frame) const;

  /// Chooses an item of a pop-up by pressing, moving and releasing the mouse. from: the chosen
  /// item's position, which the menu opens over; to: the wanted one's, another than that.
  void choose(const ScreenArea &popUp, int from, int to) const;

  /// The same for a choice with an immediate effect: does not wait until the menu has closed.
  void chooseAtOnce(const ScreenArea &popUp, int from, int to) const;

  /// Where a pop-up's item is on the screen while its menu is open. from: the selected item's
  /// position, which the menu opens over.
  ScreenArea itemOf(const ScreenArea &popUp, int from, int item) const;

  /// Whether the menu over a pop-up is open, and stays open: an item is highlighted when the mouse
  /// moves to it.
  bool seesOpenMenu(const ScreenArea &item) const;

  /// Presses Return once and waits for the window's sheet.
  bool pressReturnAndSeeSheet() const;

  /// Clicks on a button and waits for the sheet.
  bool clickAndSeeSheet(const ScreenArea &button) const;

  /// Presses Return in the alert and waits until the window is alone again.
  bool dismissAlert() const;
};
