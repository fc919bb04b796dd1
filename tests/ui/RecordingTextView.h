#import <AppKit/AppKit.h>

/// A text view that records its action messages ("cut:", "undo") with their senders, and does
/// nothing. Its undo manager is its own; recordUndo: is there to be registered with it.
@interface RecordingTextView : NSTextView {
 @public
  NSMutableArray *notes;
  id lastSender;
  NSUndoManager *ownUndoManager;
}
- (void)recordUndo:(id)unused;
@end
