#pragma once

#import "tests/e2e/InterfaceFrame.h"
#import "tests/e2e/ScreenTab.h"
#import "tests/e2e/WindowTest.h"

/// The copy-link tab, used with real keys and clicks.
struct CopyLinkTab : WindowTest, ScreenTab {
  using WindowTest::WindowTest;

  /// Opens the window on the tab, by a client of its own; returns whether it is visible and has the
  /// focus.
  bool openTab(const SendCall &call = {});

  /// Chooses an item of the pop-up, in which the first is chosen. index: 1 for the second.
  void chooseDownloads(int index) const;
};

// Its controls, see ScreenTab.
constexpr InterfaceFrame kDownloads = {"MainWindow", "CopyLinkController.noOfDownloads"};
constexpr InterfaceFrame kNotify = {"MainWindow", "CopyLinkController.isNotifyMe"};
constexpr InterfaceFrame kAskForMail = {"MainWindow", "CopyLinkController.isAskForMail"};
constexpr InterfaceFrame kCopy = {"MainWindow", "sendCopyLink:"};
