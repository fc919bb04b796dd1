#import <AppKit/AppKit.h>

/// One item of the list of people: a row's view with its person as represented object. The window's
/// interface file holds the prototype, of which the list makes its copies.
///
/// The controls of a row have their item as target, because a copy of the prototype takes nothing
/// along that lies outside of it. The item hands their actions on to the list's delegate, with the
/// control as sender. Main thread only.
@interface PersonItem : NSCollectionViewItem

/// The row's pop-up. Does nothing for a row that is in no list any more.
- (IBAction)popUpButtonSelectionDidChange:(NSPopUpButton *)popUp;

/// The row's remove button; the same holds.
- (IBAction)removeEntryClicked:(NSButton *)button;

@end
