#import <AppKit/AppKit.h>

// Fields that perform the editing shortcuts themselves (see EditingKeys.h), whatever main menu
// there is. Made by the interface files only. Main thread.

/// A text field, for a mail's subject.
@interface CustomTextFieldSubclass : NSTextField

/// Never asks the base class, whatever the answer.
- (BOOL)performKeyEquivalent:(NSEvent *)event;

@end

/// A token field, for the recipients' addresses.
@interface CustomTokenFieldSubClass : NSTokenField

/// Never asks the base class, whatever the answer.
- (BOOL)performKeyEquivalent:(NSEvent *)event;

@end
