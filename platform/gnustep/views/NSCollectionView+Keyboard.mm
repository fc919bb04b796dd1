#import "platform/gnustep/views/NSCollectionView+Keyboard.h"

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "platform/gnustep/views/NSTabView+KeyLoop.h"

namespace {

constinit platform::ReplacedMethod<void(NSEvent *)> platformKeyDown;

/// All without subviews of their own: whether they accept the keyboard may change at any time.
void addKeyViews(NSView *view, NSMutableArray *keyViews) {
  for (NSView *subview in [view subviews]) {
    if ([[subview subviews] count] == 0 || [subview acceptsFirstResponder]) {
      [keyViews addObject:subview];
    } else {
      addKeyViews(subview, keyViews);
    }
  }
}

/// nil for an item that has not been visible, which is only a placeholder.
NSView *viewOf(id item) {
  return [item respondsToSelector:@selector(view)] ? [item view] : nil;
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

- (void)prepareKeyViewsAround:(NSView *)view {
  const NSUInteger count = [_items count];
  const NSUInteger index = [self indexOfItemAround:view];
  if (count > 0) {
    // Behind the views in front of the list and in front of those behind it.
    [self createItemAtIndex:0];
    [self createItemAtIndex:count - 1];
  }
  if (index != NSNotFound) {
    if (index > 0) [self createItemAtIndex:index - 1];
    if (index + 1 < count) [self createItemAtIndex:index + 1];
  }
  [self linkKeyViews];
}

- (BOOL)scrollItemAroundToVisible:(NSView *)view {
  const NSUInteger index = [self indexOfItemAround:view];
  if (index == NSNotFound) return NO;
  [self scrollRectToVisible:[self frameForItemAtIndex:index]];
  return YES;
}

/// NSNotFound for a view in no item.
- (NSUInteger)indexOfItemAround:(NSView *)view {
  if (![view isDescendantOf:self]) return NSNotFound;
  for (NSUInteger index = 0; index < [_items count]; ++index) {
    NSView *const itemView = viewOf([_items objectAtIndex:index]);
    if (itemView != nil && [view isDescendantOf:itemView]) return index;
  }
  return NSNotFound;
}

- (void)createItemAtIndex:(NSUInteger)index {
  if (viewOf([_items objectAtIndex:index]) != nil) return;
  // The platform sets the frame when it draws the item.
  [[[self itemAtIndex:index] view] setFrame:[self frameForItemAtIndex:index]];
}

- (void)linkKeyViews {
  NSMutableArray *const keyViews = [NSMutableArray array];
  for (id item in _items) {
    if (viewOf(item) != nil) addKeyViews(viewOf(item), keyViews);
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
