#import "platform/gnustep/sheets/SheetQueue.h"

#import "platform/gnustep/sheets/NSWindow+Sheet.h"
#import "platform/gnustep/sheets/Sheet.h"

namespace {

/// A sheet can have a sheet: the one in front, nil when the window has none.
NSWindow *frontSheet(NSWindow *window) {
  NSWindow *sheet = [window attachedSheet];
  while ([sheet attachedSheet] != nil) sheet = [sheet attachedSheet];
  return sheet;
}

NSEvent *keyEventFor(NSWindow *window, NSEvent *event) {
  const BOOL isPress = [event type] != NSFlagsChanged;
  return [NSEvent keyEventWithType:[event type]
                          location:[event locationInWindow]
                     modifierFlags:[event modifierFlags]
                         timestamp:[event timestamp]
                      windowNumber:[window windowNumber]
                           context:[window graphicsContext]
                        characters:isPress ? [event characters] : @""
       charactersIgnoringModifiers:isPress ? [event charactersIgnoringModifiers] : @""
                         isARepeat:isPress && [event isARepeat]
                           keyCode:[event keyCode]];
}

}  // namespace

@interface SheetQueue (Observing)
- (void)parentFrameDidChange:(NSNotification *)notification;
- (void)parentWillClose:(NSNotification *)notification;
- (void)applicationDidUnhide:(NSNotification *)notification;
- (void)applicationDidBecomeActive:(NSNotification *)notification;
@end

@implementation SheetQueue

- (id)init {
  if ((self = [super init])) {
    _sheets = [[NSMutableArray alloc] init];
    [self observe:NSWindowDidMoveNotification with:@selector(parentFrameDidChange:)];
    [self observe:NSWindowDidResizeNotification with:@selector(parentFrameDidChange:)];
    [self observe:NSWindowWillCloseNotification with:@selector(parentWillClose:)];
    [self observe:NSApplicationDidUnhideNotification with:@selector(applicationDidUnhide:)];
    [self observe:NSApplicationDidBecomeActiveNotification
             with:@selector(applicationDidBecomeActive:)];
  }
  return self;
}

- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [_sheets release];
  [super dealloc];
}

/// For every window: an observation of one window would have to end with it.
- (void)observe:(NSString *)name with:(SEL)selector {
  [[NSNotificationCenter defaultCenter] addObserver:self selector:selector name:name object:nil];
}

#pragma mark - Beginning and ending

- (void)beginSheet:(NSWindow *)window
    modalForWindow:(NSWindow *)parent
     modalDelegate:(id)delegate
    didEndSelector:(SEL)selector
       contextInfo:(void *)contextInfo {
  Sheet *const former = [self sheetOfWindow:window];
  // Begun again by the delegate that is just being told of the end.
  if ([former isEnding]) {
    [self finish:former];
  } else if (former != nil) {
    return;
  }
  if (window == nil || [self isWindow:window sameAsOrAncestorOf:parent]) return;
  Sheet *const sheet = [[[Sheet alloc] initWithWindow:window
                                               parent:parent
                                             delegate:delegate
                                       didEndSelector:selector
                                          contextInfo:contextInfo] autorelease];
  [_sheets addObject:sheet];
  [self showNextSheetOf:parent];
}

- (void)endSheet:(NSWindow *)window returnCode:(NSInteger)code {
  // The delegate may do anything, and end the queue's own hold of the sheet with it.
  Sheet *const sheet = [[[self sheetOfWindow:window] retain] autorelease];
  if (sheet == nil || [sheet isEnding]) return;
  [self dropSheetsOf:window];
  [sheet end];
  [sheet tellDelegateReturnCode:code];
  [self finish:sheet];
}

/// Shows the first sheet that waits for the parent, unless one is up, or has ended and is still to
/// be seen because its delegate is at work. Sheets without a parent do not wait for each other.
- (void)showNextSheetOf:(NSWindow *)parent {
  for (Sheet *sheet in [[_sheets copy] autorelease]) {
    if ([sheet parent] != parent) continue;
    if ([sheet isWaiting]) {
      [sheet show];
      if (parent != nil) return;
    } else if ([sheet isEnding] && ![[sheet window] isVisible]) {
      [self finish:sheet];
      return;
    } else if (parent != nil) {
      return;
    }
  }
}

/// Harmless when the sheet is finished already.
- (void)finish:(Sheet *)sheet {
  if ([_sheets indexOfObjectIdenticalTo:sheet] == NSNotFound) return;
  NSWindow *const parent = [sheet parent];
  [[sheet retain] autorelease];
  [_sheets removeObjectIdenticalTo:sheet];
  [sheet dismiss];
  if (parent != nil) [self showNextSheetOf:parent];
}

- (void)dropSheetsOf:(NSWindow *)parent {
  for (Sheet *sheet in [self sheetsOf:parent]) {
    [self dropSheetsOf:[sheet window]];
    [_sheets removeObjectIdenticalTo:sheet];
    [sheet dismiss];
  }
}

- (void)windowWillDealloc:(NSWindow *)window {
  NSArray *const sheets = [self sheetsOf:window];
  // When a sheet leaves the screen the platform looks through the windows that are on it, and would
  // retain and release this one.
  if ([sheets count] > 0) [window releaseBackendWindow];
  for (Sheet *sheet in sheets) {
    [self dropSheetsOf:[sheet window]];
    [_sheets removeObjectIdenticalTo:sheet];
    [sheet dismissWithoutParent];
  }
}

#pragma mark - Finding

- (Sheet *)sheetOfWindow:(NSWindow *)window {
  for (Sheet *sheet in _sheets) {
    if ([sheet window] == window) return sheet;
  }
  return nil;
}

/// Those of nobody when parent is nil: none.
- (NSArray *)sheetsOf:(NSWindow *)parent {
  NSMutableArray *const sheets = [NSMutableArray array];
  for (Sheet *sheet in _sheets) {
    if (parent != nil && [sheet parent] == parent) [sheets addObject:sheet];
  }
  return sheets;
}

/// Whether window is the other one, or the other one is a sheet of window, of its sheets, and so
/// on.
- (BOOL)isWindow:(NSWindow *)window sameAsOrAncestorOf:(NSWindow *)other {
  while (other != nil && other != window) other = [[self sheetOfWindow:other] parent];
  return other != nil;
}

#pragma mark - Events

- (NSEvent *)eventToDeliver:(NSEvent *)event {
  NSWindow *const window = [event window];
  NSWindow *const front = frontSheet(window);
  if (front == nil) return event;
  switch ([event type]) {
    case NSLeftMouseDown:
    case NSRightMouseDown:
    case NSOtherMouseDown:
      [[self sheetOfWindow:front] takeFocus];
      return nil;
    case NSLeftMouseUp:
    case NSRightMouseUp:
    case NSOtherMouseUp:
    case NSLeftMouseDragged:
    case NSRightMouseDragged:
    case NSOtherMouseDragged:
    case NSMouseMoved:
    case NSCursorUpdate:
    case NSScrollWheel:
      return nil;
    case NSKeyDown:
    case NSKeyUp:
    case NSFlagsChanged:
      return keyEventFor(front, event);
    case NSAppKitDefined:
      return [self handlesWindowServerEvent:event forWindow:window frontSheet:front] ? nil : event;
    default:
      return event;
  }
}

/// Whether what the window server says of a window with a sheet has been dealt with here.
- (BOOL)handlesWindowServerEvent:(NSEvent *)event
                       forWindow:(NSWindow *)window
                      frontSheet:(NSWindow *)front {
  if ([event subtype] == GSAppKitWindowClose) return YES;
  if ([event subtype] != GSAppKitWindowFocusIn) return NO;
  // The window was brought back from its icon, or is none of a modal session's business: both are
  // the window's own affair.
  if ([window isMiniaturized] || [NSApp modalWindow] != nil) return NO;
  [[self sheetOfWindow:front] takeFocus];
  return YES;
}

@end

@implementation SheetQueue (Observing)

- (void)parentFrameDidChange:(NSNotification *)notification {
  [[self sheetOfWindow:[[notification object] attachedSheet]] followParent];
}

- (void)parentWillClose:(NSNotification *)notification {
  [self dropSheetsOf:[notification object]];
}

- (void)applicationDidUnhide:(NSNotification *)notification {
  (void)notification;
  for (Sheet *sheet in [[_sheets copy] autorelease]) {
    if ([sheet isUp]) [sheet showAgain];
  }
}

/// The platform has ordered the key window in.
- (void)applicationDidBecomeActive:(NSNotification *)notification {
  (void)notification;
  for (Sheet *sheet in _sheets) [[sheet window] acceptCloseRequests];
}

@end
