#import <AppKit/AppKit.h>

/// A text field that handles the editing shortcuts itself (see EditingKeys.h), whatever main menu
/// there is. Made by the interface files only. Main thread.
@interface CustomTextFieldSubclass : NSTextField

/// Never asks the base class, whatever the answer.
- (BOOL)performKeyEquivalent:(NSEvent *)event;

@end
