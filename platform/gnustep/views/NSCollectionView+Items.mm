#import <AppKit/AppKit.h>

#import "platform/gnustep/menus/NSPopUpButton+OpenMenu.h"
#import "platform/gnustep/runtime/DeallocHook.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

// The platform's collection view leaks its items, because bindings of an item's view retain the
// item, and it resets the minimum and maximum size of items.

@interface NSCollectionView (PlatformItems)
- (void)_resetItemSize;
- (void)_removeItemsViews;
@end

@interface NSCollectionView (Items)
/// Removes the bindings of all item views. To be called before these are released.
- (void)unbindItemViews;
@end

namespace {

constinit platform::ReplacedMethod<void()> platformRemoveItemsViews;
constinit platform::ReplacedMethod<void()> platformResetItemSize;

/// The platform's size of an item without a prototype.
constexpr NSSize kPlaceholderSize = {120, 100};

bool isGiven(NSSize size) {
  return size.width > 0 && size.height > 0 && !NSEqualSizes(size, kPlaceholderSize);
}

/// Removes the bindings of a view and its subviews. A binding retains the object that it is bound
/// to: those of the view retain the item, which retains the view.
void unbindView(NSView *view) {
  if ([view isKindOfClass:[NSPopUpButton class]]) closeMenuOf(static_cast<NSPopUpButton *>(view));
  for (NSString *binding in [view exposedBindings]) {
    if ([view infoForBinding:binding] != nil) [view unbind:binding];
  }
  for (NSView *subview in [view subviews]) unbindView(subview);
}

void unbindItems(id collection) {
  [collection unbindItemViews];
  // The controls of the prototype are bound to the prototype.
  unbindView([[collection itemPrototype] view]);
}

}  // namespace

@implementation NSCollectionView (Items)

+ (void)load {
  addDeallocHook(self, unbindItems);
  platformRemoveItemsViews.install(self, @selector(_removeItemsViews),
                                   @selector(unbindAndRemoveItemViews));
  platformResetItemSize.install(self, @selector(_resetItemSize),
                                @selector(resetItemSizesThatWereNotSet));
}

- (void)unbindAndRemoveItemViews {
  [self unbindItemViews];
  platformRemoveItemsViews(self, _cmd);
}

/// Sizes that were set are kept; others are those of the prototype.
- (void)resetItemSizesThatWereNotSet {
  const NSSize smallest = _minItemSize;
  const NSSize largest = _maxItemSize;
  platformResetItemSize(self, _cmd);
  if (isGiven(smallest)) _minItemSize = smallest;
  if (isGiven(largest)) _maxItemSize = largest;
}

- (void)unbindItemViews {
  for (id item in _items) {
    // An item that has not been visible is only a placeholder.
    if ([item respondsToSelector:@selector(view)]) unbindView([item view]);
  }
}

@end
