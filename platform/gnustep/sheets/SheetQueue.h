#import <AppKit/AppKit.h>

/// All sheets of the application: which are up, and which wait because their window has one
/// already. Main thread only.
///
/// A window that is closed or freed takes its sheets with it, the waiting ones too: they leave the
/// screen and are released, and their delegates hear nothing, because there is nothing left to
/// decide. Ending such a sheet later does nothing.
@interface SheetQueue : NSObject {
 @private
  NSMutableArray *_sheets;
}

/// See -[NSApplication beginSheet:modalForWindow:modalDelegate:didEndSelector:contextInfo:]. Does
/// nothing when window is nil or a sheet already, or when it would end up above itself.
- (void)beginSheet:(NSWindow *)window
    modalForWindow:(NSWindow *)parent
     modalDelegate:(id)delegate
    didEndSelector:(SEL)selector
       contextInfo:(void *)contextInfo;

/// Ends the sheet, waiting or up, tells its delegate, and takes it off the screen where the
/// delegate has not done so. What is attached to it in turn is dropped. Does nothing for any other
/// window.
- (void)endSheet:(NSWindow *)window returnCode:(NSInteger)code;

/// What is to be delivered instead of the event, nil for nothing: a window with a sheet gets no
/// clicks, what is typed there goes to the sheet, and its close button is dead.
- (NSEvent *)eventToDeliver:(NSEvent *)event;

/// To be called when a window is being freed.
- (void)windowWillDealloc:(NSWindow *)window;

@end
