#import <AppKit/AppKit.h>

#import "platform/gnustep/menus/NSPopUpButton+OpenMenu.h"
#import "platform/gnustep/runtime/DeallocHook.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

// What the platform's collection view does to its items otherwise than the Mac's: it never ends
// them, because each is bound to from its own view, and it forgets how small and how large they may
// be.

@interface NSCollectionView (PlatformItems)
- (void)_resetItemSize;
- (void)_removeItemsViews;
@end

@interface NSCollectionView (Items)
/// To be done before item views are let go of.
- (void)unbindItemViews;
@end

namespace {

constinit platform::ReplacedMethod<void()> platformRemoveItemsViews;
constinit platform::ReplacedMethod<void()> platformResetItemSize;

/// The size of an item while there is no prototype; it stands for none.
constexpr NSSize kPlaceholderSize = {120, 100};

bool isGiven(NSSize size) {
  return size.width > 0 && size.height > 0 && !NSEqualSizes(size, kPlaceholderSize);
}

/// Makes an item's view ready to go. A binding keeps what it is bound to: the view's keep the item,
/// which keeps the view.
void unbindView(NSView *view) {
  if ([view isKindOfClass:[NSPopUpButton class]]) closeMenuOf(static_cast<NSPopUpButton *>(view));
  for (NSString *binding in [view exposedBindings]) {
    if ([view infoForBinding:binding] != nil) [view unbind:binding];
  }
  for (NSView *subview in [view subviews]) unbindView(subview);
}

void unbindItems(id collection) {
  [collection unbindItemViews];
  // What the prototype's controls are bound to is the prototype.
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

/// The sizes that were asked for stay; those that were not are the prototype's.
- (void)resetItemSizesThatWereNotSet {
  const NSSize smallest = _minItemSize;
  const NSSize largest = _maxItemSize;
  platformResetItemSize(self, _cmd);
  if (isGiven(smallest)) _minItemSize = smallest;
  if (isGiven(largest)) _maxItemSize = largest;
}

- (void)unbindItemViews {
  for (id item in _items) {
    // Of an item that has not been in sight there is only a placeholder.
    if ([item respondsToSelector:@selector(view)]) unbindView([item view]);
  }
}

@end
