#pragma once

#import <AppKit/AppKit.h>

// On the Mac the controls in a collection view's items belong to the key view loop, in the order of
// the items, after the collection view and before the next key view of its scroll view. The
// platform creates items only while it draws, and does not add them. Main thread.

@interface NSCollectionView (Keyboard)

/// Creates the items that the keyboard can reach next from a view, and links the controls of all
/// items that there are: the neighbours of the view's item, and the first and the last item. To be
/// called before the keyboard moves on; a view outside the collection view, or nil, is allowed.
- (void)prepareKeyViewsAround:(NSView *)view;

/// Scrolls the item that a view belongs to into sight; NO, and no effect, for a view in no item.
- (BOOL)scrollItemAroundToVisible:(NSView *)view;

@end
