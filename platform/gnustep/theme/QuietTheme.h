#pragma once

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSTheme.h>

/// The look of the application on this platform: flat, light and quiet, close to that of a recent
/// Mac, drawn in code. Each kind of control has a file of its own (QuietTheme+Buttons.mm, ...).
/// There are no menus in windows or on the screen: like on the Mac, an application in the
/// background shows none; their key equivalents work all the same.
@interface QuietTheme : GSTheme
@end

/// Makes the theme the application's, with its fonts, unless the user has chosen a theme
/// (the default "GSTheme"). To be called from the principal class's +sharedApplication, before the
/// platform's own initialisation, so that no picture or font of another look is loaded; further
/// calls do nothing. Main thread.
void installQuietTheme();
