#import <AppKit/AppKit.h>

/// Whether a window is a sheet, which the platform's windows cannot tell. Main thread only.
@interface NSWindow (Sheet)

/// Whether this window is attached to another one as its sheet at the moment.
- (BOOL)isSheet;

@end

/// For the sheets themselves (see Sheet.h); the application has no use for these.
@interface NSWindow (SheetAppearance)

/// Makes sheet the window's attachedSheet; nil for none. Retains neither.
- (void)attachSheet:(NSWindow *)sheet;

/// Destroys the window server's window. Ordering the window in creates another one.
- (void)releaseBackendWindow;

/// Orders a sheet in above its parent, and above other applications' windows only when this is the
/// active one.
- (void)orderInAsSheet;

/// Makes the window manager ask before it closes the sheet, which ignores the request (see
/// CloseRequests.h). Does nothing for other windows. To be repeated whenever the sheet has been
/// ordered in, because the platform resets it.
- (void)acceptCloseRequests;

/// Orders the window out and changes its style mask, and adds or removes a line round its contents,
/// one point wide. The contents keep their size and their place.
- (void)applyStyleMask:(NSUInteger)mask border:(BOOL)border;

@end
