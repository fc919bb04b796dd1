#import <AppKit/AppKit.h>

/// The line round a window without a title bar. Lies above the window's contents and ignores
/// clicks.
@interface SheetBorder : NSView
@end
