#import <AppKit/AppKit.h>

@class SheetQueue;

/// The principal class of a background application, as with LSUIElement on the Mac: it has no icon
/// tile, does not take the focus when it is launched, and hiding orders its windows out although
/// there is no tile to unhide it by (the platform would miniaturise them instead).
///
/// Its sheets block their parent only (see SheetQueue.h); the platform runs a modal session of the
/// whole application.
@interface BackgroundApplication : NSApplication {
 @private
  BOOL _isLaunching;
  BOOL _isSendingEvent;
  int _pasteboardAttempts;
  SheetQueue *_sheetQueue;
}

/// Whether an event of the keyboard, the mouse or the window server is being handled, and not a
/// request of another process or a timer. Main thread only.
- (BOOL)isSendingEvent;
@end
