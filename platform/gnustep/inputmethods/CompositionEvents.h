#pragma once

#import <AppKit/AppKit.h>
#include <X11/Xlib.h>

/// What an input method does, as key events: so it takes place after the keys before it, is
/// discarded with them, and waits like them while the main thread is busy.
enum class CompositionStep {
  Mark,    ///< the text is being composed; empty: nothing is any more
  Insert,  ///< the text is final, and comes before one that is being composed
  End,     ///< what is being composed is final as it is
};

/// Puts a step into the event queue, for the text view that has the focus when it is handled.
/// `caret` is in the text of Mark, in UTF-16 units.
void postComposition(CompositionStep step, NSString *text, NSUInteger caret);

/// Handles a step, and a key event without any characters, which is none; NO, without an effect,
/// for any other event.
BOOL handleComposition(NSEvent *event);

/// The window server's number of a window.
Window serverWindow(NSWindow *window);

/// The text view of the window that has the focus, if it can be edited; else nil.
NSTextView *focusedTextView(NSWindow *window);
