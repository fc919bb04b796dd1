#pragma once

#import <AppKit/AppKit.h>

/// A key event without a window.
NSEvent *keyEvent(NSEventType type, unsigned short keyCode, NSUInteger modifiers,
                  NSString *characters = @"");

/// The key codes of the editing shortcuts, and of a key that is none.
enum Key : unsigned short { kKeyA = 0, kKeyS = 1, kKeyZ = 6, kKeyX = 7, kKeyC = 8, kKeyV = 9 };

/// A key window with two fields of a class and a button.
class EditingFields {
 public:
  /// fieldClass: NSTextField or a subclass. Returns when the window is key.
  explicit EditingFields(Class fieldClass);
  ~EditingFields();
  EditingFields(const EditingFields &) = delete;
  EditingFields &operator=(const EditingFields &) = delete;

  /// Begins to edit the field, which then has `text` typed, all at once, and selected or not.
  NSTextView *edit(NSTextField *edited, NSString *text, bool isSelected);

  /// Posts a press and a release of the key to the queue, and dispatches them.
  void press(unsigned short keyCode, NSUInteger modifiers, NSString *characters = @"");

  NSTextView *editor() const;

  NSWindow *window;
  NSTextField *field;
  NSTextField *other;
  NSButton *button;
};
