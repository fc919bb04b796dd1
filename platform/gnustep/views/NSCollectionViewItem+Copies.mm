#import <AppKit/AppKit.h>

#import "platform/gnustep/interface-files/NSObject+Accessibility.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

// A collection view copies its items from a prototype. The platform copies by archiving, which
// loses some attributes of controls.

@interface NSCollectionViewItem (PlatformCopies)
- (void)copyBindingsTo:(NSCollectionViewItem *)item from:(NSView *)view onto:(NSView *)newView;
@end

@interface NSCollectionViewItem (Copies)
@end

@interface NSPopUpButtonCell (PlatformItemAction)
- (void)_popUpItemAction:(id)sender;
@end

namespace {

constinit platform::ReplacedMethod<void(NSCollectionViewItem *, NSView *, NSView *)>
    platformCopyBindings;

/// The accessibility description.
void copyDescription(id element, id copy) {
  NSString *const attribute = NSAccessibilityDescriptionAttribute;
  id const description = [element accessibilityAttributeValue:attribute];
  if (description != nil) [copy accessibilitySetOverrideValue:description forAttribute:attribute];
}

/// The items of an archived pop-up have lost the action that updates the bindings of the pop-up,
/// and have an image for the tick in addition to the theme's.
void restoreItems(NSPopUpButton *popUp) {
  for (NSMenuItem *item in [popUp itemArray]) {
    [item setTarget:[popUp cell]];
    [item setAction:@selector(_popUpItemAction:)];
    [item setOnStateImage:nil];
  }
}

}  // namespace

@implementation NSCollectionViewItem (Copies)

+ (void)load {
  platformCopyBindings.install(self, @selector(copyBindingsTo:from:onto:),
                               @selector(copyBindingsAndAttributesTo:from:onto:));
}

/// Called for the view of a new copy and, by the former implementation, for all its subviews.
- (void)copyBindingsAndAttributesTo:(NSCollectionViewItem *)item
                               from:(NSView *)view
                               onto:(NSView *)newView {
  copyDescription(view, newView);
  [newView setToolTip:[view toolTip]];
  if ([view isKindOfClass:[NSControl class]]) {
    copyDescription([static_cast<NSControl *>(view) cell],
                    [static_cast<NSControl *>(newView) cell]);
  }
  if ([newView isKindOfClass:[NSPopUpButton class]]) {
    restoreItems(static_cast<NSPopUpButton *>(newView));
  }
  platformCopyBindings(self, _cmd, item, view, newView);
}

@end
