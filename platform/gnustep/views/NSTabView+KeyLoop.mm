#import "platform/gnustep/views/NSTabView+KeyLoop.h"

#import "platform/gnustep/runtime/MethodReplacement.h"

// On the Mac a tab view is part of its window's loop of the Tab key, together with the controls of
// the tab that is shown: the row of tabs comes in front of the first and behind the last of them.
// The platform closes the controls' loop without the row, which no key reaches then.

@interface NSTabViewItem (KeyLoop)
- (NSView *)lastKeyView;
@end

@implementation NSTabViewItem (KeyLoop)

/// The last of the controls in the item's view that follow its first one; nil without a first one.
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
  // The controls of a tab that is not shown must not lead to the row, nor the row back to them.
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
  // By the method of all views, as the tab view's own gives what it is told to the last control.
  // Anew each time: of several views that lead to the same one, Shift-Tab goes to the latest.
  views(self, setter, nil);
  views(self, setter, [item initialFirstResponder]);
  [last setNextKeyView:self];
}

@end
