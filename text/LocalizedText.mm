#import "text/LocalizedText.h"

#include <algorithm>
#include <array>

namespace {

/// Tells once of each key without a text, so that a forgotten text is found and a list of thousands
/// of entries does not fill the log.
void reportMissing(NSString *key) {
  static NSMutableSet *const reported = [[NSMutableSet alloc] init];
  @synchronized(reported) {
    if ([reported containsObject:key]) return;
    [reported addObject:key];
  }
  NSLog(@"No text for \"%@\"", key);
}

/// One thing that the format step replaces.
struct Conversion {
  NSString *written;
  bool takesArgument;
};

const std::array<Conversion, 3> kConversions = {{{@"%%", false}, {@"%@", true}, {@"%1$@", true}}};

bool standsAt(NSString *text, NSUInteger place, NSString *written) {
  const NSRange rest = NSMakeRange(place, [text length] - place);
  return
      [text rangeOfString:written options:NSLiteralSearch | NSAnchoredSearch range:rest].location ==
      place;
}

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

NSString *localizedText(NSString *key) {
  if ([key length] == 0) return @"";
  NSString *const text = [[NSBundle mainBundle] localizedStringForKey:key value:@"" table:nil];
  // Platforms differ in what an empty default means: some answer the key then.
  if ([text length] > 0 && ![text isEqualToString:key]) return text;
  reportMissing(key);
  return @"";
}

NSString *formatted(NSString *text, NSString *argument) {
  NSMutableString *const result = [NSMutableString string];
  NSUInteger place = 0;
  while (place < [text length]) {
    const NSRange rest = NSMakeRange(place, [text length] - place);
    const NSRange percent = [text rangeOfString:@"%" options:NSLiteralSearch range:rest];
    if (percent.location == NSNotFound) break;
    [result appendString:[text substringWithRange:NSMakeRange(place, percent.location - place)]];
    place = percent.location;
    const auto *const found =
        std::find_if(kConversions.begin(), kConversions.end(), [&](const Conversion &conversion) {
          return standsAt(text, place, conversion.written) &&
                 (!conversion.takesArgument || argument != nil);
        });
    if (found == kConversions.end()) {
      [result appendString:@"%"];
      place += 1;
      continue;
    }
    [result appendString:found->takesArgument ? argument : @"%"];
    if (found->takesArgument) argument = nil;
    place += [found->written length];
  }
  if (place < [text length]) [result appendString:[text substringFromIndex:place]];
  return result;
}

#pragma mark - Interface files

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
