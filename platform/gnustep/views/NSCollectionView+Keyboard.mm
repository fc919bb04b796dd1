#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "platform/gnustep/views/NSTabView+KeyLoop.h"

// On the Mac the controls in a collection view's items belong to the key view loop, in the order of
// the items, after the collection view and before the next key view of its scroll view. The
// platform creates items while it draws and does not add them.

@interface NSCollectionView (Keyboard)
@end

namespace {

constinit platform::ReplacedMethod<void(NSEvent *)> platformKeyDown;
constinit platform::ReplacedMethod<void(NSRect)> platformDrawRect;

void addKeyViews(NSView *view, NSMutableArray *keyViews) {
  for (NSView *subview in [view subviews]) {
    const BOOL takesKeys = [subview acceptsFirstResponder];
    if (takesKeys) [keyViews addObject:subview];
    if (!takesKeys) addKeyViews(subview, keyViews);
  }
}

/// nil outside any tab view.
NSTabView *tabViewAround(NSView *view) {
  NSView *around = [view superview];
  while (around != nil && ![around isKindOfClass:[NSTabView class]]) around = [around superview];
  return static_cast<NSTabView *>(around);
}

}  // namespace

// Replacing the platform's own methods is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSCollectionView (Keyboard)

+ (void)load {
  platformKeyDown.install(self, @selector(keyDown:), @selector(selectItemsByKey:));
  platformDrawRect.install(self, @selector(drawRect:), @selector(drawRectAndLinkKeyViews:));
}

/// Only if items can be selected.
- (BOOL)acceptsFirstResponder {
  return [self isSelectable];
}

/// Keys that a control in an item has not handled are passed on, not used for the selection.
- (void)selectItemsByKey:(NSEvent *)event {
  if ([[self window] firstResponder] == self) {
    platformKeyDown(self, _cmd, event);
  } else {
    [[self nextResponder] keyDown:event];
  }
}

- (void)drawRectAndLinkKeyViews:(NSRect)rect {
  const NSUInteger before = [[self subviews] count];
  platformDrawRect(self, _cmd, rect);
  if ([[self subviews] count] != before) [self linkKeyViews];
}

- (void)linkKeyViews {
  NSMutableArray *const keyViews = [NSMutableArray array];
  for (id item in _items) {
    if ([item respondsToSelector:@selector(view)]) addKeyViews([item view], keyViews);
  }
  NSView *last = self;
  for (NSView *keyView in keyViews) {
    [last setNextKeyView:keyView];
    last = keyView;
  }
  [last setNextKeyView:[[self enclosingScrollView] nextKeyView]];
  [tabViewAround(self) linkKeyViews];
}

@end
