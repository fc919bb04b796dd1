#import "platform/gnustep/theme/InterfaceFont.h"

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSFontInfo.h>

/// Loads the platform's drawing backend, which lists the fonts. Called here because NSApplication
/// uses fonts right after it; a second call has no effect.
extern "C" BOOL initialize_gnustep_backend(void);

namespace {

struct Family {
  NSString *regular;
  NSString *bold;
};

const Family kFamilies[] = {
    {@"Inter-Regular", @"Inter-SemiBold"},
    {@"Cantarell-Regular", @"Cantarell-Bold"},
    {@"NotoSans-Regular", @"NotoSans-Bold"},
    {@"DejaVuSans", @"DejaVuSans-Bold"},
};

/// Fonts that together cover most scripts, in the order in which they are searched for a character
/// that the interface's font lacks.
NSArray *fallbackFonts() {
  return @[
    @"DejaVuSans", @"NotoSans-Regular", @"DroidSansFallback", @"DroidSansFallbackFull",
    @"NotoSansCJKjp-Regular", @"NotoSansCJKsc-Regular", @"WenQuanYiMicroHei", @"WenQuanYiZenHei",
    @"VL-PGothic-Regular", @"IPAPGothic", @"NanumGothic", @"FreeSans"
  ];
}

/// The platform's own search answers the name of a family instead of a font, and question marks are
/// drawn.
void nameFallbackFonts(NSArray *installed) {
  if ([[NSFont preferredFontNames] count] > 0) return;
  NSMutableArray *const fallbacks = [NSMutableArray array];
  for (NSString *font in fallbackFonts()) {
    if ([installed containsObject:font]) [fallbacks addObject:font];
  }
  [NSFont setPreferredFontNames:fallbacks];
}

NSDictionary *fontNames(const Family &family) {
  NSMutableDictionary *const names = [NSMutableDictionary dictionary];
  for (NSString *role in @[
         @"NSFont", @"NSUserFont", @"NSMenuFont", @"NSMenuBarFont", @"NSMessageFont",
         @"NSToolTipsFont", @"NSControlContentFont", @"NSLabelFont"
       ]) {
    [names setObject:family.regular forKey:role];
  }
  for (NSString *role in @[ @"NSBoldFont", @"NSTitleBarFont", @"NSPaletteFont" ]) {
    [names setObject:family.bold forKey:role];
  }
  return names;
}

NSDictionary *fontSizes() {
  return @{
    @"NSFontSize" : @"13",
    @"NSBoldFontSize" : @"13",
    @"NSSmallFontSize" : @"11",
    @"NSMiniFontSize" : @"9",
    @"NSLabelFontSize" : @"10",
    @"NSToolTipsFontSize" : @"11",
  };
}

}  // namespace

void registerInterfaceFonts() {
  NSUserDefaults *const defaults = [NSUserDefaults standardUserDefaults];
  [defaults registerDefaults:fontSizes()];
  initialize_gnustep_backend();
  NSArray *const installed = [[GSFontEnumerator sharedEnumerator] availableFonts];
  nameFallbackFonts(installed);
  for (const Family &family : kFamilies) {
    if (![installed containsObject:family.regular] || ![installed containsObject:family.bold]) {
      continue;
    }
    [defaults registerDefaults:fontNames(family)];
    return;
  }
}
