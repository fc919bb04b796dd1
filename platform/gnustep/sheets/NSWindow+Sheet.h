#import <AppKit/AppKit.h>

/// What the platform's windows do not know about being a sheet. Main thread only.
@interface NSWindow (Sheet)

/// Whether this window is attached to another one as its sheet at the moment.
- (BOOL)isSheet;

@end

/// For the sheets themselves (see Sheet.h); the application has no use for these.
@interface NSWindow (SheetAppearance)

/// Makes sheet the window's attachedSheet; nil for none. Retains neither.
- (void)attachSheet:(NSWindow *)sheet;

/// Gives up what the window server has of the window. Ordered in again, it gets it anew.
- (void)releaseBackendWindow;

/// Orders a sheet in above its parent, and above other applications' windows only when this is the
/// active one.
- (void)orderInAsSheet;

/// Lets the window manager ask the sheet to close, which it will not do (see CloseRequests.h). Does
/// nothing for other windows. To be repeated whenever the sheet has been ordered in: the platform
/// forgets it.
- (void)acceptCloseRequests;

/// Takes the window off the screen and makes it look as mask says when it is shown the next time,
/// with or without a thin line round its contents. The contents keep their size and their place.
- (void)applyStyleMask:(NSUInteger)mask border:(BOOL)border;

@end
