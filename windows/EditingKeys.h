#pragma once

#import <AppKit/AppKit.h>

/// What an editing shortcut does to the text that is being edited.
enum class EditingAction { None, SelectAll, Undo, Cut, Copy, Paste };

/// The action of a key together with Command. keyCode: the platform's virtual key code, which
/// stands for a position on the ANSI layout and not for the letter on the user's. None for every
/// key that is no editing shortcut.
constexpr EditingAction editingActionOfKey(unsigned short keyCode) {
  switch (keyCode) {
    case 0:  // A
      return EditingAction::SelectAll;
    case 6:  // Z
      return EditingAction::Undo;
    case 7:  // X
      return EditingAction::Cut;
    case 8:  // C
      return EditingAction::Copy;
    case 9:  // V
      return EditingAction::Paste;
    default:
      return EditingAction::None;
  }
}

/// Performs the editing shortcut that the event is, on whatever text view is the first responder of
/// the field's window, with the field as the sender. Modifiers besides Command do not count: Shift-
/// Command-Z undoes, there is no shortcut for redo.
/// NO, and nothing has happened, when the event is no key-down with Command (nil included) or no
/// shortcut, when no text view is the first responder, when there is nothing selected to cut or
/// copy or nothing to undo. Main thread.
BOOL performEditingKey(NSControl *field, NSEvent *event);
