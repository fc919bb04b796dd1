#pragma once

#import <AppKit/AppKit.h>

/// An alert with the application's own icon and the platform's single button, ready to be shown.
/// message and informative: shown as they are; nil for none. Autoreleased; main thread.
NSAlert *alertWithTexts(NSString *message, NSString *informative);

/// Runs the alert application-modally and returns when the user has dismissed it. For use where no
/// window of the application is open. The application runs behind all others and is hidden most of
/// the time, so it is brought to the front first: otherwise the user would wait for nothing.
void runModally(NSAlert *alert);
