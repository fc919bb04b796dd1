#import "platform/gnustep/theme/QuietTheme.h"

#include "platform/gnustep/desktop/DesktopLook.h"
#import "platform/gnustep/theme/InterfaceFont.h"
#include "platform/gnustep/theme/ThemeDrawing.h"
#import "platform/gnustep/theme/ThemeHooks.h"
#import "platform/gnustep/theme/ThemeImages.h"
#import "platform/gnustep/theme/WindowLook.h"

namespace {

NSString *const kThemeName = @"Quiet";
NSString *const kThemeDefault = @"GSTheme";

struct NamedColor {
  NSString *name;
  theme::Tone tone;
};

const NamedColor kSystemColors[] = {
    {@"alternateRowBackgroundColor", theme::kStripe},
    {@"alternateSelectedControlColor", theme::kAccent},
    {@"alternateSelectedControlTextColor", theme::kOnAccent},
    {@"controlBackgroundColor", theme::kSurface},
    {@"controlColor", theme::kWindow},
    {@"controlDarkShadowColor", theme::kLine},
    {@"controlHighlightColor", theme::kLineFaint},
    {@"controlLightHighlightColor", theme::kSurface},
    {@"controlShadowColor", theme::kLine},
    {@"controlTextColor", theme::kText},
    {@"disabledControlTextColor", theme::kTextDisabled},
    {@"gridColor", theme::kLineFaint},
    {@"headerColor", theme::kWindow},
    {@"headerTextColor", theme::kText},
    {@"highlightColor", theme::kSurface},
    {@"keyboardFocusIndicatorColor", theme::kAccent},
    {@"knobColor", theme::kKnob},
    {@"labelColor", theme::kText},
    {@"quaternaryLabelColor", theme::kLine},
    {@"rowBackgroundColor", theme::kSurface},
    {@"scrollBarColor", theme::kSurface},
    {@"secondaryLabelColor", theme::kTextSecondary},
    {@"secondarySelectedControlColor", theme::kTrack},
    {@"selectedControlColor", theme::kSelection},
    {@"selectedControlTextColor", theme::kText},
    {@"selectedKnobColor", theme::kKnobPressed},
    {@"selectedMenuItemColor", theme::kAccent},
    {@"selectedMenuItemTextColor", theme::kOnAccent},
    {@"selectedTextBackgroundColor", theme::kSelectedText},
    {@"selectedTextColor", theme::kText},
    {@"shadowColor", theme::kLine},
    {@"tertiaryLabelColor", theme::kTextDisabled},
    {@"textBackgroundColor", theme::kSurface},
    {@"textColor", theme::kText},
    {@"toolTipColor", theme::kToolTip},
    {@"toolTipTextColor", theme::kText},
    {@"windowBackgroundColor", theme::kWindow},
    {@"windowFrameColor", theme::kLine},
    {@"windowFrameTextColor", theme::kText},
};

/// Colours that the platform asks the theme for by name only.
const NamedColor kThemeColors[] = {
    {@"highlightedTableRowBackgroundColor", theme::kAccent},
    {@"highlightedTableRowTextColor", theme::kOnAccent},
    {@"tableHeaderTextColor", theme::kTextSecondary},
    {@"windowBorderColor", theme::kLine},
};

/// Without a bundle, in which the platform would search for each image under many names, folders
/// and extensions, which would take a good part of the launch.
QuietTheme *sharedTheme() {
  static QuietTheme *const theme = [[QuietTheme alloc] initWithBundle:nil];
  return theme;
}

/// The platform looks up anew only the system colours that it has been asked for by their methods.
/// An interface file may have others.
void askForSystemColors() {
  for (const NamedColor &named : kSystemColors) {
    SEL const method = NSSelectorFromString(named.name);
    if ([NSColor respondsToSelector:method]) [NSColor performSelector:method];
  }
}

}  // namespace

@implementation QuietTheme

/// Called when it becomes the theme, and again when the desktop has another look.
- (void)activate {
  theme::setDark(platform::currentLook().isDark);
  askForSystemColors();
  [super activate];
}

- (void)deactivate {
  // Other themes have one look.
  theme::setDark(false);
  [super deactivate];
}

/// Called when the default for the theme changes. The platform would search for a bundle on the
/// disk.
+ (GSTheme *)loadThemeNamed:(NSString *)name {
  return [name isEqual:kThemeName] ? sharedTheme() : [super loadThemeNamed:name];
}

- (NSString *)name {
  return kThemeName;
}

/// "GSThemeDomain" holds defaults that apply while the theme is active; the user's own settings
/// override them.
- (NSDictionary *)infoDictionary {
  return @{
    @"GSThemeDomain" : @{
      @"NSScrollViewInterfaceStyle" : @"NSMacintoshInterfaceStyle",
      @"NSScrollerInterfaceStyle" : @"NSMacintoshInterfaceStyle",
      // Menus in windows, where the theme shows none (see below).
      @"NSMenuInterfaceStyle" : @"NSWindows95InterfaceStyle",
      @"GSScrollerDefaultWidth" : @"12",
      @"GSScrollViewUseBottomCorner" : @"NO",
      @"GSScrollViewNoInnerBorder" : @"YES",
    }
  };
}

- (Class)imageClass {
  return [ThemeImage class];
}

#pragma mark - Colours

- (NSColorList *)colors {
  static NSColorList *const list = [[NSColorList alloc] initWithName:@"System" fromFile:nil];
  for (const NamedColor &named : kSystemColors) {
    [list setColor:theme::color(named.tone) forKey:named.name];
  }
  return list;
}

- (NSColor *)colorNamed:(NSString *)name state:(GSThemeControlState)state {
  (void)state;
  for (const NamedColor &named : kThemeColors) {
    if ([named.name isEqual:name]) return theme::color(named.tone);
  }
  return nil;
}

/// Nothing is drawn from images; without this the platform would search for them on the disk.
- (GSDrawTiles *)tilesNamed:(NSString *)name state:(GSThemeControlState)state {
  (void)name;
  (void)state;
  return nil;
}

#pragma mark - The main menu, which is never shown

- (void)setMenu:(NSMenu *)menu forWindow:(NSWindow *)window {
  (void)menu;
  (void)window;
}

- (void)updateMenu:(NSMenu *)menu forWindow:(NSWindow *)window {
  (void)menu;
  (void)window;
}

- (void)updateAllWindowsWithMenu:(NSMenu *)menu {
  (void)menu;
}

@end

void showCurrentLook() {
  GSTheme *const theme = [GSTheme theme];
  if ([theme isKindOfClass:[QuietTheme class]]) {
    // Tells the platform of the colours, and has all windows drawn.
    [theme activate];
    for (NSWindow *window in [NSApp windows]) giveLookToWindow(window);
    return;
  }
  for (NSWindow *window in [NSApp windows]) [window setViewsNeedDisplay:YES];
}

void installQuietTheme() {
  static bool isInstalled = false;
  if (isInstalled) return;
  isInstalled = true;
  NSUserDefaults *const defaults = [NSUserDefaults standardUserDefaults];
  [defaults registerDefaults:@{@"GSAppOwnsMiniwindow" : @"NO"}];
  registerInterfaceFonts();
  if ([[defaults stringForKey:kThemeDefault] length] > 0) return;
  installThemeHooks();
  [QuietTheme setTheme:sharedTheme()];
  // After setTheme:, because the platform would search for the theme on the disk. Whenever a
  // default changes the platform compares the name, and would set another theme without this.
  [defaults registerDefaults:@{kThemeDefault : kThemeName}];
}
