#import "text/InterfaceTexts.h"

#import "text/LocalizedText.h"

namespace {

/// The text to put in place of `written`, nil when it is no key.
NSString *replacement(NSString *written) {
  return [written hasSuffix:@"Key"] ? localizedText(written) : nil;
}

void localizeToolTip(NSView *view) {
  if (NSString *const tip = replacement([view toolTip])) [view setToolTip:tip];
}

/// The name that is read to users who do not see the control.
void localizeDescription(id element) {
  NSString *const attribute = NSAccessibilityDescriptionAttribute;
  NSString *const text = replacement([element accessibilityAttributeValue:attribute]);
  if (text != nil) [element accessibilitySetOverrideValue:text forAttribute:attribute];
}

void localizeButton(NSButton *button) {
  if (NSString *const title = replacement([button title])) [button setTitle:title];
}

void localizePopUp(NSPopUpButton *button) {
  localizeMenu([button menu]);
  [button synchronizeTitleAndSelectedItem];
}

void localizeField(NSTextField *field) {
  if (NSString *const value = replacement([field stringValue])) [field setStringValue:value];
  NSTextFieldCell *const cell = [field cell];
  if (NSString *const hint = replacement([cell placeholderString]))
    [cell setPlaceholderString:hint];
}

void localizeTabs(NSTabView *tabs) {
  for (NSTabViewItem *item in [tabs tabViewItems]) {
    if (NSString *const label = replacement([item label])) [item setLabel:label];
    localizeView([item view]);
  }
}

void localizeCollection(NSCollectionView *collection) {
  localizeView([[collection itemPrototype] view]);
}

}  // namespace

void localizeView(NSView *view) {
  if ([view isKindOfClass:[NSTabView class]]) {
    localizeTabs(static_cast<NSTabView *>(view));
    return;  // the shown tab's view is one of its subviews
  }
  localizeToolTip(view);
  localizeDescription(view);
  if ([view isKindOfClass:[NSControl class]]) {
    localizeDescription([static_cast<NSControl *>(view) cell]);
  }
  if ([view isKindOfClass:[NSPopUpButton class]]) {
    localizePopUp(static_cast<NSPopUpButton *>(view));
  } else if ([view isKindOfClass:[NSButton class]]) {
    localizeButton(static_cast<NSButton *>(view));
  } else if ([view isKindOfClass:[NSTextField class]]) {
    localizeField(static_cast<NSTextField *>(view));
  } else if ([view isKindOfClass:[NSCollectionView class]]) {
    localizeCollection(static_cast<NSCollectionView *>(view));
  }
  for (NSView *subview in [view subviews]) localizeView(subview);
}

void localizeWindow(NSWindow *window) {
  if (NSString *const title = replacement([window title])) [window setTitle:title];
  localizeView([window contentView]);
}

void localizeMenu(NSMenu *menu) {
  if (NSString *const title = replacement([menu title])) [menu setTitle:title];
  for (NSMenuItem *item in [menu itemArray]) {
    if (NSString *const title = replacement([item title])) [item setTitle:title];
    localizeMenu([item submenu]);
  }
}
