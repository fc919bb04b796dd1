#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSHorizontalTypesetter.h>

/// Also breaks lines between tokens. The platform's typesetter breaks them at spaces, or within a
/// word, and treats adjacent tokens as one word.
@interface TokenTypesetter : GSHorizontalTypesetter
@end
