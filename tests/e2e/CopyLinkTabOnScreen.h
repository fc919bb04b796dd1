#pragma once

#import "tests/e2e/ScreenTab.h"
#import "tests/e2e/WindowTest.h"

/// The copy-link tab, used with real keys and clicks.
struct CopyLinkTab : WindowTest, ScreenTab {
  using WindowTest::WindowTest;

  /// Opens the window on the tab, by a client of its own; answers whether it can be seen and has
  /// the keyboard.
  bool openTab(const SendCall &call = {});

  /// Chooses an item of the pop-up, in which the first is chosen. index: 1 for the second.
  void chooseDownloads(int index) const;
};

/// Frames of controls, see ScreenTab.
constexpr ScreenArea kDownloads = {169, 293, 160, 26};
constexpr ScreenArea kNotify = {170, 267, 367, 18};
constexpr ScreenArea kAskForMail = {170, 245, 367, 18};
constexpr ScreenArea kCopy = {414, 13, 126, 32};
