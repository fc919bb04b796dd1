#pragma once

#import <AppKit/AppKit.h>

/// The keys that move out of a message of several lines, where a text view would insert a tab.
/// Main thread.

enum class MessageKey {
  /// Everything that the text view handles, Return and Option-Tab included.
  Text,
  /// Tab and Shift-Tab.
  Next,
  Previous,
  /// Escape.
  Cancel,
};

/// What a keyboard command means in a message. isComposing: whether an input method is composing
/// text; it handles Escape then.
MessageKey messageKey(SEL command, BOOL isComposing);

/// Implements textView:doCommandBySelector: for a message's delegate. Moves the keyboard focus to
/// the next or the previous control; for Escape sends `cancel` to `target` with the message as
/// sender, which may close the window.
BOOL doCommandInMessage(NSTextView *message, SEL command, id target, SEL cancel);
