#import <AppKit/AppKit.h>

/// Full keyboard access for tabs: the row of tabs is a key view, in which the left and right arrow
/// keys select the neighbouring tab. The platform's tabs handle the mouse only.
@interface NSTabView (Keyboard)
@end
