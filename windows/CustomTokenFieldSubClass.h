#import <AppKit/AppKit.h>

/// A token field that handles the editing shortcuts itself (see EditingKeys.h), for the recipients'
/// addresses. Made by the interface files only. Main thread.
@interface CustomTokenFieldSubClass : NSTokenField

/// Never asks the base class, whatever the answer.
- (BOOL)performKeyEquivalent:(NSEvent *)event;

@end
