#pragma once

#import <AppKit/AppKit.h>

// On the Mac an open menu receives all keys. The platform does not track a pop-up's menu that was
// opened by keyboard, so that Return would press the default button of the window, and the pop-up
// could be deallocated while its menu is open. Main thread.

/// Sends a key without Command to the pop-up whose menu was opened by keyboard, and closes that
/// menu at a press of the mouse elsewhere, which has no other effect; answers whether the event has
/// been handled.
BOOL deliverToOpenMenu(NSEvent *event);

/// Closes the menu of a pop-up that is about to be removed, if it is open.
void closeMenuOf(NSPopUpButton *popUp);
