#import <AppKit/AppKit.h>

/// The principal class of an application that lives behind the others, as LSUIElement makes one on
/// the Mac: no icon tile, no floating menu, and no end when its last window or alert closes.
@interface BackgroundApplication : NSApplication
@end
