#import <AppKit/AppKit.h>

// The fields of a window share one field editor and one undo manager. A field's editing begins and
// ends with setString:, and the field uses it to show a new value meanwhile. What was recorded
// before belongs to a text that is gone: undone in another one, it would write at places that may
// not even exist there. The platform forgets it only where the editor resigns as first responder.
@implementation NSTextView (FieldEditorUndo)

- (void)setString:(NSString *)string {
  [super setString:string];
  if (![self isFieldEditor]) return;
  NSUndoManager *const undoManager = [self undoManager];
  // Actions of the current event are in a group that is still open, where they would be left alone.
  if ([undoManager groupsByEvent] && [undoManager groupingLevel] == 1 && ![undoManager isUndoing] &&
      ![undoManager isRedoing]) {
    [undoManager endUndoGrouping];
  }
  [undoManager removeAllActionsWithTarget:[self textStorage]];
}

@end
