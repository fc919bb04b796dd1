#pragma once

#include <string>
#include <vector>

#import "tests/e2e/InterfaceFrame.h"
#import "tests/e2e/ScreenTab.h"

/// The labels that lead from tab to tab, where the platform draws them.
constexpr ScreenArea kPeopleLabel = {234, 384, 20, 20};
constexpr ScreenArea kInviteLabel = {301, 384, 20, 20};

// The controls of the invite tab and of the tab with the people, see ScreenTab.
constexpr InterfaceFrame kInviteRecipients = {"ShareFolder", "InviteTabController.mailList"};
constexpr InterfaceFrame kInviteAccess = {"ShareFolder", "InviteTabController.accessType"};
constexpr InterfaceFrame kInviteMessage = {"ShareFolder", "InviteTabController.mailContent"};
constexpr InterfaceFrame kInviteButton = {"ShareFolder", "sendInvite:"};
constexpr InterfaceFrame kStatusText = {"ShareFolder", "PermissionTabController.notSharingText"};
constexpr InterfaceFrame kIndicator = {"ShareFolder", "PermissionTabController.spinGear"};

/// The positions of the two levels in the pop-ups.
constexpr int kReadWrite = 0;
constexpr int kReadOnly = 1;

/// The frame of the pop-up in a row of the people's list, which is not scrolled.
ScreenArea accessInRow(int row);

/// As many entries of an access list, of people with read access: Reader0 Last and so on.
NSArray *readers(int count);

/// The share window, used with real keys and clicks.
struct ShareTab : ScreenTab {
  /// Switches to the other tab by a click on its label.
  void goTo(const ScreenArea &label) const;

  /// Waits until the list has this many rows, at most five; returns whether it gets them.
  bool seesRows(int count) const;

  /// Waits until the list has a row at least; returns whether it gets one.
  bool seesAnyRow() const;

  /// Chooses the other level from the pop-up of a row; does not wait for the result. from, to:
  /// kReadWrite or kReadOnly.
  void chooseAccess(int row, int from, int to) const;

  /// Presses the button of a row; returns whether the question appears.
  bool askToRemove(int row) const;

  /// Waits for the success sheet, and for its end.
  bool seesSuccess() const;
};
