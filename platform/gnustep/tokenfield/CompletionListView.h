#import <AppKit/AppKit.h>

/// The rows of a completion list. Draws the visible ones. The row under the mouse is highlighted
/// and a click sends the action. Main thread only.
@interface CompletionListView : NSView {
 @private
  NSArray *_items;
  NSInteger _selectedRow;
  NSFont *_font;
  id _target;
  SEL _action;
}

/// The height of one row in points.
+ (CGFloat)rowHeightForFont:(NSFont *)font;

/// target: not retained. action: sent with the view when the selected row has been clicked.
- (void)setTarget:(id)target action:(SEL)action;

/// items: retained. Sets the height of the view to that of all rows.
- (void)setItems:(NSArray *)items font:(NSFont *)font;
- (NSArray *)items;

/// -1: none. Scrolls the row to visible.
- (void)setSelectedRow:(NSInteger)row;
- (NSInteger)selectedRow;

@end
