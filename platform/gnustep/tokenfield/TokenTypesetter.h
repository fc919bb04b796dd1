#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSHorizontalTypesetter.h>

/// Breaks lines between tokens, too. The platform's breaks them only at spaces, and otherwise
/// within a word, although a finished token is a word of its own.
@interface TokenTypesetter : GSHorizontalTypesetter
@end
