#import <AppKit/AppKit.h>

/// The rows of a completion list. Draws those in sight. The mouse highlights the row below it and a
/// click sends the action. Main thread only.
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

/// items: retained. The view takes the height of all rows.
- (void)setItems:(NSArray *)items font:(NSFont *)font;
- (NSArray *)items;

/// -1: none. Scrolls the row into sight.
- (void)setSelectedRow:(NSInteger)row;
- (NSInteger)selectedRow;

@end
