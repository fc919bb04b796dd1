#import <AppKit/AppKit.h>

@class CompletionList;
@class CompletionListView;

/// The owner of a completion list.
@protocol CompletionListUser <NSObject>

/// The user has clicked an item.
- (void)completionList:(CompletionList *)list choseItem:(NSString *)item;

@end

/// A list of texts below a view, in a window that never becomes key. It closes when the view's
/// window moves, is resized, resigns key, begins a sheet, closes or is miniaturised, and when the
/// application is hidden. Main thread only.
@interface CompletionList : NSObject {
 @private
  id<CompletionListUser> _user;
  NSPanel *_panel;
  CompletionListView *_rows;
  NSView *_view;
}

/// The maximum number of visible rows; the others are reached by scrolling.
+ (NSUInteger)visibleRows;

/// user: not retained.
- (id)initWithUser:(id<CompletionListUser>)user;

/// Opens the list, or changes the items of an open one. items: strings, at least one; retained, and
/// only visible ones are read. selected: the highlighted row; -1 for none.
- (void)showItems:(NSArray *)items
         selected:(NSInteger)selected
             font:(NSFont *)font
            below:(NSView *)view;

- (void)close;
- (BOOL)isOpen;

/// The highlighted text; nil when there is none.
- (NSString *)selectedItem;

/// Moves the highlight by rows, to the first or last one at most, and makes it visible.
- (void)moveSelectionBy:(NSInteger)rows;

@end
