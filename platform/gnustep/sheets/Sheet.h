#import <AppKit/AppKit.h>

/// One sheet, from beginSheet:... to its end. Retains its window and its delegate, but not its
/// parent, which may be deallocated while the sheet is waiting or visible (see
/// dismissWithoutParent). Main thread only.
@interface Sheet : NSObject {
 @private
  NSWindow *_window;
  NSWindow *_parent;
  id _delegate;
  SEL _didEndSelector;
  void *_contextInfo;
  enum { SheetWaits, SheetIsUp, SheetIsEnding, SheetIsOver } _state;
  BOOL _wasShown;
  NSUInteger _formerStyleMask;
  NSInteger _formerLevel;
  BOOL _formerlyHidOnDeactivate;
}

/// parent nil: the sheet is a separate window in the centre of the screen. delegate nil or selector
/// NULL: no message at the end.
- (id)initWithWindow:(NSWindow *)window
              parent:(NSWindow *)parent
            delegate:(id)delegate
      didEndSelector:(SEL)selector
         contextInfo:(void *)contextInfo;

- (NSWindow *)window;

/// nil when there was none or when it has been deallocated.
- (NSWindow *)parent;

- (BOOL)isWaiting;
- (BOOL)isUp;

/// Ended, and its delegate is being sent the message.
- (BOOL)isEnding;

/// Attaches the sheet to its parent and orders it in; while the application is hidden, showAgain
/// does the latter. Only for a waiting sheet.
- (void)show;

/// Orders the attached sheet in again, in its place.
- (void)showAgain;

/// Moves the sheet below its parent's title bar, centred.
- (void)followParent;

/// Orders the sheet in front of its parent and makes it key; activates the application.
- (void)takeFocus;

/// Detaches the sheet, which stays visible for now, and makes its parent key. Only for a visible or
/// waiting sheet.
- (void)end;

/// Sends the delegate its didEndSelector, if it implements it.
- (void)tellDelegateReturnCode:(NSInteger)code;

/// Orders the sheet out and restores its window. Allowed in every state.
- (void)dismiss;

/// As dismiss, without sending the parent a message, while that is being deallocated.
- (void)dismissWithoutParent;

@end
