#pragma once

#import "tests/e2e/WindowTest.h"

/// The copy-link tab, used with real keys and clicks.
struct CopyLinkTab : WindowTest {
  /// Of the last one opened.
  ScreenWindow window;

  /// Opens the window on the tab, by a client of its own; answers whether it can be seen and has
  /// the keyboard.
  bool openTab(const SendCall &call = {});

  /// Clicks on a control. It is named by its frame in the interface file, in the tab's own
  /// coordinates, of which y runs upwards.
  void click(const ScreenArea &frame) const;

  /// Clicks on a box and waits until that shows.
  void toggle(const ScreenArea &frame) const;

  /// Chooses an item of the pop-up, in which the first is chosen, by pressing, moving and releasing
  /// the mouse. index: 1 for the second.
  void chooseDownloads(int index) const;

  /// Presses Return once and waits for what comes of it: the window with a sheet on it.
  bool pressReturnAndSeeSheet() const;

  /// Presses Return in the alert and waits until the window is alone again.
  bool dismissAlert() const;
};

/// Frames of controls, see CopyLinkTab::click.
constexpr ScreenArea kDownloads = {169, 293, 160, 26};
constexpr ScreenArea kNotify = {170, 267, 367, 18};
constexpr ScreenArea kAskForMail = {170, 245, 367, 18};
constexpr ScreenArea kCopy = {414, 13, 126, 32};
