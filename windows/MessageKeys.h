#pragma once

#import <AppKit/AppKit.h>

/// The keys that lead out of a message of several lines, in which a text view would write a tab for
/// Tab. Main thread.

enum class MessageKey {
  /// Anything that is the text view's own business; Return and Option-Tab are.
  Text,
  /// Tab and Shift-Tab.
  Next,
  Previous,
  /// Escape.
  Cancel,
};

/// What a command of the keyboard means in a message. isComposing: whether an input method is at
/// work in the text; Escape is its own then.
MessageKey messageKey(SEL command, BOOL isComposing);

/// What a message's delegate answers to textView:doCommandBySelector:. Moves the keyboard to the
/// control in front or behind; for Escape sends `cancel` to `target`, with the message as sender,
/// which may close the window.
BOOL doCommandInMessage(NSTextView *message, SEL command, id target, SEL cancel);
