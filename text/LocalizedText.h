#pragma once

#import <AppKit/AppKit.h>

/// The text for `key` in the user's language, from the application's string table. A key without a
/// text gives the empty string, never the key itself: users cannot read keys. The first time, the
/// key is logged. nil gives the empty string. Autoreleased; any thread.
NSString *localizedText(NSString *key);

/// The format step that texts of the string table pass through: "%%" becomes "%", and the first
/// "%@" (or "%1$@") becomes the argument. Nothing else in the text is a conversion, so a mistake of
/// a translator is shown instead of reading memory that is not there. argument: nil for none. nil
/// as text gives the empty string. Autoreleased; any thread.
NSString *formatted(NSString *text, NSString *argument = nil);

// The interface files carry the key of each text in the text's place ("sendButtonTitleKey"), so
// that one file serves every language. These replace the keys once, when a file has been loaded. A
// text that is not a key (it does not end in "Key", as the number of a pop-up does not) stays. Main
// thread; nil is harmless.

/// Replaces the keys in the window's title and everything in it, the tabs that are not shown
/// included.
void localizeWindow(NSWindow *window);

/// Replaces the keys in a view and everything in it.
void localizeView(NSView *view);

/// Replaces the keys in a menu's items and their submenus.
void localizeMenu(NSMenu *menu);
