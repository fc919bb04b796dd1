#import <AppKit/AppKit.h>

// The fields of a window share one field editor and one undo manager. A field sets the text of the
// editor when editing begins and ends, and for a new value meanwhile. Actions recorded before refer
// to the former text: undone in another one, they would change ranges that may not exist. The
// platform removes them only when the editor resigns first responder.
@implementation NSTextView (FieldEditorUndo)

- (void)setString:(NSString *)string {
  [super setString:string];
  if (![self isFieldEditor]) return;
  NSUndoManager *const undoManager = [self undoManager];
  // Actions of the current event are in a group that is still open, from which they are not
  // removed.
  if ([undoManager groupsByEvent] && [undoManager groupingLevel] == 1 && ![undoManager isUndoing] &&
      ![undoManager isRedoing]) {
    [undoManager endUndoGrouping];
  }
  [undoManager removeAllActionsWithTarget:[self textStorage]];
}

@end
