#import "platform/gnustep/sheets/NSWindow+Sheet.h"

#import <GNUstepGUI/GSDisplayServer.h>
#import <GNUstepGUI/GSWindowDecorationView.h>

#import "platform/gnustep/sheets/SheetBorder.h"
#include "platform/gnustep/windows/CloseRequests.h"

@interface NSWindow (PlatformPrivate)
- (void)_terminateBackendWindow;
- (void)setAttachedSheet:(NSWindow *)sheet;
@end

namespace {

SheetBorder *borderIn(NSView *decoration) {
  for (NSView *view in [decoration subviews]) {
    if ([view isKindOfClass:[SheetBorder class]]) return static_cast<SheetBorder *>(view);
  }
  return nil;
}

}  // namespace

// Replacing the platform's own methods is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSWindow (Sheet)

- (BOOL)isSheet {
  return [[self parentWindow] attachedSheet] == self;
}

/// A window without a title bar cannot have the keyboard as a rule, but a sheet must.
- (BOOL)canBecomeKeyWindow {
  constexpr NSUInteger kFramed = NSTitledWindowMask | NSResizableWindowMask;
  return (_styleMask & kFramed) != 0 || [self isSheet];
}

/// The window that a sheet belongs to stays the main window.
- (BOOL)canBecomeMainWindow {
  constexpr NSUInteger kFramed = NSTitledWindowMask | NSResizableWindowMask;
  return [self isVisible] && (_styleMask & kFramed) != 0 && ![self isSheet];
}

/// A window with a sheet passes the keyboard on to it, whoever gives it, and takes it to the front.
/// Not to one that is off the screen: while a sheet is being ordered out the platform hands its
/// keyboard to this window, and ordered in again in the middle of that the sheet would count as
/// visible for ever.
- (void)makeKeyWindow {
  if ([_attachedSheet isVisible]) {
    [_attachedSheet orderInAsSheet];
    [_attachedSheet makeKeyWindow];
    return;
  }
  // A click has just ordered it in.
  [self acceptCloseRequests];
  if (![self isVisible] || [self isMiniaturized] || [self isKeyWindow]) return;
  if (![self canBecomeKeyWindow]) return;
  [[NSApp keyWindow] resignKeyWindow];
  [self becomeKeyWindow];
}

@end

@implementation NSWindow (SheetAppearance)

- (void)attachSheet:(NSWindow *)sheet {
  [self setAttachedSheet:sheet];
}

- (void)releaseBackendWindow {
  [self _terminateBackendWindow];
}

- (void)orderInAsSheet {
  if ([NSApp isActive]) {
    [self orderFront:nil];
  } else {
    [self orderWindow:NSWindowAbove relativeTo:[[self parentWindow] windowNumber]];
  }
  [self acceptCloseRequests];
}

- (void)acceptCloseRequests {
  GSDisplayServer *const server = GSServerForWindow(self);
  if (![self isSheet] || ![server isKindOfClass:NSClassFromString(@"XGServer")]) return;
  void *const window = [server windowDevice:static_cast<int>([self windowNumber])];
  acceptCloseRequests([server serverDevice], reinterpret_cast<unsigned long>(window));
}

- (void)applyStyleMask:(NSUInteger)mask border:(BOOL)border {
  [self orderOut:nil];
  [borderIn(_wv) removeFromSuperview];
  const NSRect content = [self contentRectForFrameRect:[self frame]];
  const NSSize smallest = [self contentMinSize];
  const NSSize largest = [self contentMaxSize];

  // The window server gives a window its title bar when it makes the window and takes it away from
  // no living one. Ordered in, the window is made again, as deferred and one-shot windows are.
  [self releaseBackendWindow];
  _styleMask = mask;

  // The platform keeps these for the frame, which has just become another for the same contents.
  [self setContentMinSize:smallest];
  [self setContentMaxSize:largest];
  [self setFrame:[self frameRectForContentRect:content] display:NO];
  [_wv layout];
  if (!border) return;
  SheetBorder *const line = [[[SheetBorder alloc] initWithFrame:[_wv bounds]] autorelease];
  [line setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
  [_wv addSubview:line];
}

@end
