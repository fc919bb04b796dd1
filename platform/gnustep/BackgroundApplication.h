#import <AppKit/AppKit.h>

/// The principal class of an application that lives behind the others, as LSUIElement makes one on
/// the Mac: no icon tile, and nobody's focus is taken when it starts.
@interface BackgroundApplication : NSApplication {
 @private
  BOOL _isLaunching;
}
@end
