#pragma once

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSTheme.h>

/// The theme of the application on this platform, close to that of a recent Mac and drawn in code.
/// Each kind of control has a file of its own (QuietTheme+Buttons.mm, ...). The main menu is not
/// shown, as for a background application on the Mac; its key equivalents work.
@interface QuietTheme : GSTheme
@end

/// Draws all windows in the current look of the desktop (see desktop/DesktopLook.h). To be called
/// when it has changed. Main thread.
void showCurrentLook();

/// Installs the theme and its fonts, unless the user has chosen a theme (the default "GSTheme"). To
/// be called from the principal class's +sharedApplication, before the platform's own
/// initialisation, so that no image or font of another theme is loaded; further calls have no
/// effect. Main thread.
void installQuietTheme();
