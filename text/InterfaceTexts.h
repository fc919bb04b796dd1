#pragma once

#import <AppKit/AppKit.h>

/// The interface files carry the key of each text in the text's place ("sendButtonTitleKey"), so
/// that one file serves every language. These put the texts in, once, when a file has been loaded.
/// A text that is not a key (it does not end in "Key", as the number of a pop-up does not) stays.
/// Main thread; nil is harmless.

/// The window's title and everything in it, the tabs that are not shown included.
void localizeWindow(NSWindow *window);

/// A view and everything in it.
void localizeView(NSView *view);

/// A menu's items and their submenus.
void localizeMenu(NSMenu *menu);
