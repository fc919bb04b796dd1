#import <AppKit/AppKit.h>

/// All sheets of the application: the visible ones, and those that wait because their parent has a
/// sheet already. Main thread only.
///
/// When a window is closed or deallocated, its sheets, also the waiting ones, are ordered out and
/// released without a message to their delegates, because there is nothing left to decide. Ending
/// such a sheet later has no effect.
@interface SheetQueue : NSObject {
 @private
  NSMutableArray *_sheets;
}

/// See -[NSApplication beginSheet:modalForWindow:modalDelegate:didEndSelector:contextInfo:]. No
/// effect when window is nil or a sheet already, or when parent is the window itself or one of its
/// sheets.
- (void)beginSheet:(NSWindow *)window
    modalForWindow:(NSWindow *)parent
     modalDelegate:(id)delegate
    didEndSelector:(SEL)selector
       contextInfo:(void *)contextInfo;

/// Ends a visible or waiting sheet, sends its delegate the message, and orders it out if the
/// delegate has not done so. Sheets of the sheet are dropped. No effect for any other window.
- (void)endSheet:(NSWindow *)window returnCode:(NSInteger)code;

/// The event to send instead, nil for none: a window with a sheet gets no clicks, its keys go to
/// the sheet, and its close button has no effect.
- (NSEvent *)eventToDeliver:(NSEvent *)event;

/// To be called from the dealloc of a window.
- (void)windowWillDealloc:(NSWindow *)window;

@end
