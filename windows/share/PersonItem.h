#import <AppKit/AppKit.h>

@class SharedWith;

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

/// The view of one row of the permissions tab. It knows its person, so that whoever gets a control
/// of the row as sender finds the row by it, wherever the list has been scrolled and whatever was
/// removed. Main thread only.
@interface PersonRowView : NSView {
 @private
  SharedWith *person;
}

/// Whom the row shows; nil in the prototype. Setting it puts the person's address into the tool tip
/// of the name, which may be too long to be seen in full or be shared by two people.
@property (nonatomic, retain) SharedWith *person;

@end
