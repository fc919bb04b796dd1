#import "platform/gnustep/sheets/SheetQueue.h"

#import "platform/gnustep/sheets/NSWindow+Sheet.h"
#import "platform/gnustep/sheets/Sheet.h"

namespace {

/// The frontmost of the window's sheets, because a sheet can have one; nil for none.
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

/// For all windows, because the observation of one window would have to be removed with it.
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
  // Begun again by its delegate in the did-end message.
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
  // The delegate may remove the sheet from the queue.
  Sheet *const sheet = [[[self sheetOfWindow:window] retain] autorelease];
  if (sheet == nil || [sheet isEnding]) return;
  [self dropSheetsOf:window];
  [sheet end];
  [sheet tellDelegateReturnCode:code];
  [self finish:sheet];
}

/// Shows the first waiting sheet of the parent, unless one is visible, also one that has ended and
/// whose delegate has not returned. Sheets without a parent do not wait for each other.
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

/// No effect when the sheet is finished already.
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
  // When a sheet is ordered out the platform retains and releases the visible windows, and this one
  // is being deallocated.
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

/// Empty when parent is nil.
- (NSArray *)sheetsOf:(NSWindow *)parent {
  NSMutableArray *const sheets = [NSMutableArray array];
  for (Sheet *sheet in _sheets) {
    if (parent != nil && [sheet parent] == parent) [sheets addObject:sheet];
  }
  return sheets;
}

/// Whether both are the same, or other is a sheet of window, or of one of its sheets, and so on.
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

/// Handles an event of the window server for a window with a sheet; NO when it is not handled here.
- (BOOL)handlesWindowServerEvent:(NSEvent *)event
                       forWindow:(NSWindow *)window
                      frontSheet:(NSWindow *)front {
  if ([event subtype] == GSAppKitWindowClose) return YES;
  if ([event subtype] != GSAppKitWindowFocusIn) return NO;
  // Not for a window that is deminiaturized or during a modal session.
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

/// The platform has ordered the key window in, which resets this.
- (void)applicationDidBecomeActive:(NSNotification *)notification {
  (void)notification;
  for (Sheet *sheet in _sheets) [[sheet window] acceptCloseRequests];
}

@end
