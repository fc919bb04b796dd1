#import <AppKit/AppKit.h>

@class CompletionList;
@class CompletionListView;

/// Whoever shows a completion list.
@protocol CompletionListUser <NSObject>

/// The user has clicked an item.
- (void)completionList:(CompletionList *)list choseItem:(NSString *)item;

@end

/// A list of texts below a view, in a window that never takes the keyboard. It closes by itself
/// when the view's window moves, is resized, loses the keyboard, gets a sheet, closes or is
/// miniaturised, and when the application hides. Main thread only.
@interface CompletionList : NSObject {
 @private
  id<CompletionListUser> _user;
  NSPanel *_panel;
  CompletionListView *_rows;
  NSView *_view;
}

/// How many rows are in sight at most; the rest is reached by scrolling.
+ (NSUInteger)visibleRows;

/// user: not retained.
- (id)initWithUser:(id<CompletionListUser>)user;

/// Opens the list, or changes what an open one shows. items: strings, at least one; retained and
/// read only where a row is in sight. selected: the highlighted row; -1 for none.
- (void)showItems:(NSArray *)items
         selected:(NSInteger)selected
             font:(NSFont *)font
            below:(NSView *)view;

- (void)close;
- (BOOL)isOpen;

/// The highlighted text; nil when there is none.
- (NSString *)selectedItem;

/// Moves the highlight by rows, to the first or last one at most, and scrolls it into sight.
- (void)moveSelectionBy:(NSInteger)rows;

@end
