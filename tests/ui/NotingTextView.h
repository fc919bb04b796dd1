#import <AppKit/AppKit.h>

/// A text view that notes what it is told to do ("cut:", "undo") and by whom, and does nothing. Its
/// undo manager is its own; noteUndo: is there to be registered with it.
@interface NotingTextView : NSTextView {
 @public
  NSMutableArray *notes;
  id lastSender;
  NSUndoManager *ownUndoManager;
}
- (void)noteUndo:(id)unused;
@end
