#import <AppKit/AppKit.h>

@class SheetQueue;

/// The principal class of an application that lives behind the others, as LSUIElement makes one on
/// the Mac: no icon tile, nobody's focus is taken when it starts, and hiding takes its windows off
/// the screen although there is no tile to bring them back (the platform would miniaturise them
/// instead).
///
/// Its sheets stop nothing but the window that they belong to (see SheetQueue.h); the platform's
/// own run a modal loop of the whole application.
@interface BackgroundApplication : NSApplication {
 @private
  BOOL _isLaunching;
  BOOL _isSendingEvent;
  int _pasteboardAttempts;
  SheetQueue *_sheetQueue;
}

/// Whether what happens now is done because of an event, of the keyboard, the mouse or the window
/// server, and not because of another program's call or a timer. Main thread only.
- (BOOL)isSendingEvent;
@end
