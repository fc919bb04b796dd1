#import <AppKit/AppKit.h>

@class SharedWith;

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
