#include "windows/EditingKeys.h"

BOOL performEditingKey(NSControl *field, NSEvent *event) {
  // First, because only key events have a key code.
  if ([event type] != NSKeyDown) return NO;
  if (([event modifierFlags] & NSCommandKeyMask) == 0) return NO;

  NSResponder *const responder = [[field window] firstResponder];
  if (![responder isKindOfClass:[NSTextView class]]) return NO;
  NSTextView *const editor = static_cast<NSTextView *>(responder);
  const BOOL hasSelection = [editor selectedRange].length > 0;

  switch (editingActionOfKey([event keyCode])) {
    case EditingAction::None:
      return NO;
    case EditingAction::SelectAll:
      [editor selectAll:field];
      return YES;
    case EditingAction::Undo:
      if (![[editor undoManager] canUndo]) return NO;
      [[editor undoManager] undo];
      return YES;
    case EditingAction::Cut:
      if (!hasSelection) return NO;
      [editor cut:field];
      return YES;
    case EditingAction::Copy:
      if (!hasSelection) return NO;
      [editor copy:field];
      return YES;
    case EditingAction::Paste:
      [editor paste:field];
      return YES;
  }
  return NO;
}
