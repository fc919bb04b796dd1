#import <AppKit/AppKit.h>

@class SharedWith;

/// One item of the list of people: a row's view, with its person as represented object. The list
/// makes its rows by copying the prototype in the window's interface file.
///
/// The controls of a row have their item as target, because a copy of the prototype does not keep
/// connections to objects outside of it. The item forwards their actions to the list's delegate,
/// with the control as sender. Main thread only.
@interface PersonItem : NSCollectionViewItem

/// The row's pop-up. Does nothing for a row that has been removed from the list.
- (IBAction)popUpButtonSelectionDidChange:(NSPopUpButton *)popUp;

/// The row's remove button; the same holds.
- (IBAction)removeEntryClicked:(NSButton *)button;

@end

/// The view of one row of the permissions tab. It has a reference to its person, by which the row
/// is found for a control that sends an action, however the list has been scrolled or changed. Main
/// thread only.
@interface PersonRowView : NSView {
 @private
  SharedWith *person;
}

/// The person in the row; nil in the prototype. The setter shows the address as the tool tip of the
/// name, which may be truncated or the same for two people, and sets the pop-up's spoken name.
@property (nonatomic, retain) SharedWith *person;

@end
