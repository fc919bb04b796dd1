#import "platform/gnustep/sheets/Sheet.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <algorithm>
#include <cmath>

#import "platform/gnustep/sheets/NSWindow+Sheet.h"

namespace {

/// Where its contents are, in the unit of the screen: pixels. (The platform's own method has their
/// size in points.)
NSRect contentOnScreen(NSWindow *window) {
  NSView *const view = [window contentView];
  NSRect content = [view convertRect:[view bounds] toView:nil];
  content.origin = [window convertBaseToScreen:content.origin];
  return content;
}

/// The origin of a sheet of that size: its upper edge is at the lower edge of the parent's title
/// bar.
NSPoint placeUnder(NSWindow *parent, NSSize size) {
  const NSRect content = contentOnScreen(parent);
  return NSMakePoint(std::floor(NSMidX(content) - size.width / 2), NSMaxY(content) - size.height);
}

/// How far the span from low to high must be moved to lie within the bounds. When it is too long,
/// its low end is inside, where a sheet has its buttons.
CGFloat shiftInto(CGFloat low, CGFloat high, CGFloat lowest, CGFloat highest) {
  if (low < lowest || high - low > highest - lowest) return lowest - low;
  return std::min<CGFloat>(0, highest - high);
}

/// Moves the parent so that the sheet lies on the screen, as on the Mac.
void makeRoomUnder(NSWindow *parent, NSSize size) {
  const NSRect screen = [([parent screen] ?: [NSScreen mainScreen]) visibleFrame];
  const NSPoint place = placeUnder(parent, size);
  const CGFloat x = shiftInto(place.x, place.x + size.width, NSMinX(screen), NSMaxX(screen));
  const CGFloat y = shiftInto(place.y, place.y + size.height, NSMinY(screen), NSMaxY(screen));
  if (x == 0 && y == 0) return;
  const NSPoint origin = [parent frame].origin;
  [parent setFrameOrigin:NSMakePoint(origin.x + x, origin.y + y)];
}

}  // namespace

@implementation Sheet

- (id)initWithWindow:(NSWindow *)window
              parent:(NSWindow *)parent
            delegate:(id)delegate
      didEndSelector:(SEL)selector
         contextInfo:(void *)contextInfo {
  if ((self = [super init])) {
    _window = [window retain];
    _parent = parent;
    _delegate = [delegate retain];
    _didEndSelector = selector;
    _contextInfo = contextInfo;
    _state = SheetWaits;
  }
  return self;
}

- (void)dealloc {
  [_delegate release];
  [_window release];
  [super dealloc];
}

#pragma mark - State

- (NSWindow *)window {
  return _window;
}

- (NSWindow *)parent {
  return _parent;
}

- (BOOL)isWaiting {
  return _state == SheetWaits;
}

- (BOOL)isUp {
  return _state == SheetIsUp;
}

- (BOOL)isEnding {
  return _state == SheetIsEnding;
}

#pragma mark - Beginning

- (void)show {
  _state = SheetIsUp;
  _formerStyleMask = [_window styleMask];
  _formerLevel = [_window level];
  _formerlyHidOnDeactivate = [_window hidesOnDeactivate];
  _wasShown = YES;
  if (_parent != nil) {
    [[NSNotificationCenter defaultCenter] postNotificationName:NSWindowWillBeginSheetNotification
                                                        object:_parent];
    [_window applyStyleMask:NSBorderlessWindowMask border:YES];
    // The window server keeps the sheet above its parent.
    [_window setParentWindow:_parent];
    [_parent attachSheet:_window];
  } else if (![_window isVisible]) {
    [_window center];
  }
  // A panel would be hidden when the application is deactivated; a sheet is not.
  [_window setHidesOnDeactivate:NO];
  // Makes the window manager treat this window as a dialog of the parent.
  [_window setLevel:NSModalPanelWindowLevel];
  if (![NSApp isHidden]) [self showAgain];
}

- (void)showAgain {
  if (_parent == nil) {
    [_window orderFrontRegardless];
    if ([NSApp isActive]) [_window makeKeyWindow];
    return;
  }
  if (![_parent isVisible]) [_parent orderFront:nil];
  makeRoomUnder(_parent, [_window frame].size);
  [self followParent];
  [_window orderInAsSheet];
  // Does not take the keyboard from another application.
  if ([NSApp isActive] || [_parent isKeyWindow]) [_window makeKeyWindow];
  // Window managers place a window when it is mapped.
  [self followParent];
  [_window display];
}

- (void)followParent {
  if (_state == SheetIsUp && _parent != nil) {
    [_window setFrameOrigin:placeUnder(_parent, [_window frame].size)];
  }
}

- (void)takeFocus {
  if (![NSApp isActive]) [NSApp activateIgnoringOtherApps:YES];
  [_window orderInAsSheet];
  [_window makeKeyWindow];
  // After a click on its parent's title bar the sheet may be the key window without having the
  // focus of the window server.
  [GSServerForWindow(_window) setinputfocus:static_cast<int>([_window windowNumber])];
}

#pragma mark - Ending

- (void)end {
  const BOOL wasUp = [self isUp];
  _state = SheetIsEnding;
  if (!wasUp || _parent == nil) return;
  [self detach];
}

/// Also makes the parent key, before the sheet is ordered out and the platform chooses a key
/// window.
- (void)detach {
  [_parent attachSheet:nil];
  if ([_window isKeyWindow] && [_parent isVisible]) [_parent makeKeyWindow];
}

- (void)tellDelegateReturnCode:(NSInteger)code {
  if (_didEndSelector == nullptr || ![_delegate respondsToSelector:_didEndSelector]) return;
  using DidEnd = void (*)(id, SEL, NSWindow *, NSInteger, void *);
  const auto didEnd = reinterpret_cast<DidEnd>([_delegate methodForSelector:_didEndSelector]);
  didEnd(_delegate, _didEndSelector, _window, code, _contextInfo);
}

- (void)dismiss {
  if (_state == SheetIsOver) return;
  NSWindow *const parent = _parent;
  if ([parent attachedSheet] == _window) [self detach];
  [self restoreWindow];
  if (!_wasShown || parent == nil) return;
  [[NSNotificationCenter defaultCenter] postNotificationName:NSWindowDidEndSheetNotification
                                                      object:parent];
}

- (void)dismissWithoutParent {
  [self restoreWindow];
}

- (void)restoreWindow {
  if (_wasShown && _state != SheetIsOver) {
    [_window orderOut:nil];
    if (_parent != nil) {
      [_window setParentWindow:nil];
      [_window applyStyleMask:_formerStyleMask border:NO];
    }
    [_window setLevel:_formerLevel];
    [_window setHidesOnDeactivate:_formerlyHidOnDeactivate];
  }
  _parent = nil;
  _state = SheetIsOver;
}

@end
