#import <AppKit/AppKit.h>

#import "platform/gnustep/interface-files/NSObject+Accessibility.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

// A collection view makes its items by copying a prototype, and the platform copies by archiving,
// which loses some of what a control is.

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

/// The names that are read to users who do not see the control.
void copyDescription(id element, id copy) {
  NSString *const attribute = NSAccessibilityDescriptionAttribute;
  id const description = [element accessibilityAttributeValue:attribute];
  if (description != nil) [copy accessibilitySetOverrideValue:description forAttribute:attribute];
}

/// An archived pop-up's items have lost the action by which a choice reaches what the pop-up is
/// bound to, and have got a tick as a picture that the theme's own tick makes superfluous.
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

/// Called for the view of a new copy and, by the platform's own method, for everything in it.
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
