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

/// A window without a title bar cannot become key, but a sheet must.
- (BOOL)canBecomeKeyWindow {
  constexpr NSUInteger kFramed = NSTitledWindowMask | NSResizableWindowMask;
  return (_styleMask & kFramed) != 0 || [self isSheet];
}

/// The parent of a sheet stays the main window.
- (BOOL)canBecomeMainWindow {
  constexpr NSUInteger kFramed = NSTitledWindowMask | NSResizableWindowMask;
  return [self isVisible] && (_styleMask & kFramed) != 0 && ![self isSheet];
}

/// A window with a sheet makes the sheet key and orders it front. Not one that is not visible:
/// while a sheet is being ordered out the platform makes its parent key, and a sheet that is
/// ordered in meanwhile would count as visible for ever.
- (void)makeKeyWindow {
  if ([_attachedSheet isVisible]) {
    [_attachedSheet orderInAsSheet];
    [_attachedSheet makeKeyWindow];
    return;
  }
  // A click orders the window in, which resets this.
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

  // The window server adds a title bar when it creates a window and never removes it. Ordering in
  // creates the window again, as for deferred and one-shot windows.
  [self releaseBackendWindow];
  _styleMask = mask;

  // The platform stores these for the frame, whose size for the same contents has changed.
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
