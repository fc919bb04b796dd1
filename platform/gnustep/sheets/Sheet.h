#import <AppKit/AppKit.h>

/// One sheet, from beginSheet:... to its end. Keeps its window and its delegate alive, and the
/// window that it belongs to not: that one may be freed while the sheet waits or is up (see
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

/// parent nil: the sheet is a window of its own, in the middle of the screen. delegate nil or
/// selector NULL: nobody is told of the end.
- (id)initWithWindow:(NSWindow *)window
              parent:(NSWindow *)parent
            delegate:(id)delegate
      didEndSelector:(SEL)selector
         contextInfo:(void *)contextInfo;

- (NSWindow *)window;

/// nil when there was none from the start or when it is gone.
- (NSWindow *)parent;

- (BOOL)isWaiting;
- (BOOL)isUp;

/// Ended, and its delegate is being told.
- (BOOL)isEnding;

/// Attaches the sheet to its parent and puts it on the screen; while the application is hidden,
/// showAgain does the latter. Only for a waiting sheet.
- (void)show;

/// Puts the attached sheet on the screen in its place once more.
- (void)showAgain;

/// Puts the sheet under its parent's title bar, in the middle, where it is.
- (void)followParent;

/// Brings the sheet in front of its parent and gives it the keyboard; the application becomes the
/// active one.
- (void)takeFocus;

/// Detaches the sheet, which stays on the screen for now, and hands the keyboard back to its
/// parent. Only for a sheet that is up or waits.
- (void)end;

/// Sends the delegate the selector that it named, if it has it.
- (void)tellDelegateReturnCode:(NSInteger)code;

/// Takes the sheet off the screen and makes its window what it was before. Harmless in every state.
- (void)dismiss;

/// As dismiss, when the parent is being freed: does not touch it any more.
- (void)dismissWithoutParent;

@end
