#import <AppKit/AppKit.h>

/// Tabs by keyboard: the Tab key stops at the row of tabs, and the left and right arrow keys then
/// choose the neighbouring tab. The platform's own tabs listen to the mouse only.
@interface NSTabView (Keyboard)
@end
