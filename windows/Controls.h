#pragma once

#import <AppKit/AppKit.h>

/// What several tab controllers do with their controls. Main thread.

/// Whether the box is checked: off and mixed are not.
BOOL isChecked(NSButton *box);

/// The allowed number of downloads as the agent takes it: the selected item's title, or "-1" when
/// that is the one for an unlimited number.
NSString *chosenDownloads(NSPopUpButton *numbers);

/// Shows that the application is busy, at once: the next thing is a call that blocks until the
/// agent has answered, and nothing is drawn meanwhile.
void showBusy(NSProgressIndicator *indicator);

/// Forgets the keys and clicks that came while such a call blocked. They were meant for the window
/// as it was; a second Return would dismiss the alert that follows before anybody has read it. The
/// functions that show alerts and success sheets call it first.
void discardPendingInput();
