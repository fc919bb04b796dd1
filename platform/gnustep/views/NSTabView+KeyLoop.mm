#import "platform/gnustep/views/NSTabView+KeyLoop.h"

#import "platform/gnustep/runtime/MethodReplacement.h"

// On the Mac a tab view is part of the key view loop of its window, with the controls of the
// selected tab after it. The platform links these controls in a loop of their own, from which the
// row of tabs cannot be reached.

@interface NSTabViewItem (KeyLoop)
- (NSView *)lastKeyView;
@end

@implementation NSTabViewItem (KeyLoop)

/// The last of the item's controls in the loop that begins at its initial first responder; nil
/// without that.
- (NSView *)lastKeyView {
  NSMutableArray *const seen = [NSMutableArray array];
  NSView *next = [self initialFirstResponder];
  while ([next isDescendantOf:[self view]] && ![seen containsObject:next]) {
    [seen addObject:next];
    next = [next nextKeyView];
  }
  return [seen lastObject];
}

@end

namespace {

constinit platform::ReplacedMethod<void(NSTabViewItem *)> platformSelectTabViewItem;

}  // namespace

@implementation NSTabView (KeyLoop)

+ (void)load {
  platformSelectTabViewItem.install(self, @selector(selectTabViewItem:),
                                    @selector(selectTabViewItemAndLinkKeyViews:));
}

- (void)selectTabViewItemAndLinkKeyViews:(NSTabViewItem *)item {
  // The controls of a tab that is not selected must not be linked with the row.
  NSTabViewItem *const former = [self selectedTabViewItem];
  NSView *const last = [former lastKeyView];
  if ([last nextKeyView] == self) [last setNextKeyView:[former initialFirstResponder]];
  platformSelectTabViewItem(self, _cmd, item);
  [self linkKeyViews];
}

- (void)linkKeyViews {
  using SetNextKeyView = void (*)(id, SEL, NSView *);
  const SEL setter = @selector(setNextKeyView:);
  static const auto views =
      reinterpret_cast<SetNextKeyView>([NSView instanceMethodForSelector:setter]);
  NSTabViewItem *const item = [self selectedTabViewItem];
  NSView *const last = [item lastKeyView];
  if (last == nil) return;
  // By the method of NSView, because the tab view's sets the next key view of its last control.
  // Reset each time, because of several views with the same next key view Shift-Tab selects the
  // latest.
  views(self, setter, nil);
  views(self, setter, [item initialFirstResponder]);
  [last setNextKeyView:self];
}

@end
