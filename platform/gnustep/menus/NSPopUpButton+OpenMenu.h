#pragma once

#import <AppKit/AppKit.h>

// On the Mac an open menu has the keyboard to itself. Here the platform opens a pop-up's menu by
// keyboard and goes on, so that Return would press the window's default button, and the pop-up can
// end with its menu on the screen. Main thread.

/// Gives a key without Command to the pop-up whose menu has been opened by keyboard, and closes
/// that menu at a press of the mouse elsewhere, which does nothing else; answers whether the event
/// has been dealt with.
BOOL deliverToOpenMenu(NSEvent *event);

/// Closes the menu of a pop-up that is about to go away, if it is open.
void closeMenuOf(NSPopUpButton *popUp);
