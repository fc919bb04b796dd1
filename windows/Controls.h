#pragma once

#import <AppKit/AppKit.h>

/// Functions for the controls of several tabs. Main thread.

/// Whether the box is checked: off and mixed are not.
BOOL isChecked(NSButton *box);

/// The allowed number of downloads as the agent expects it: the selected item's title, or "-1" for
/// the item that stands for an unlimited number.
NSString *chosenDownloads(NSPopUpButton *numbers);

/// Shows and draws the busy indicator at once: a call to the agent follows, which blocks, and
/// nothing is drawn until it returns.
void showBusy(NSProgressIndicator *indicator);

/// Sets the name that is read to users who do not see the control: the text for `key`
/// (LocalizedText.h). For the view and its cell, because platforms differ in which of the two they
/// ask. The interface files have these names as well, but a platform need not make what they say of
/// an element readable, so that localizeWindow could not replace the key. nil is harmless.
void setSpokenName(NSView *view, NSString *key);

/// Discards the keys and clicks that arrived while such a call blocked. They were meant for the
/// window as it was; a second Return would dismiss the alert that follows unread. The functions
/// that show alerts and success sheets call this first.
void discardPendingInput();
