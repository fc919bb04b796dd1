#import <AppKit/AppKit.h>

/// The thin line round a window that has no title bar. Lies above the window's contents, lets every
/// click through.
@interface SheetBorder : NSView
@end
