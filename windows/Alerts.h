#pragma once

#import <AppKit/AppKit.h>

/// An alert with the application's own icon and the platform's single button, ready to be shown.
/// message and informative: shown as they are; nil for none. Autoreleased; main thread.
NSAlert *alertWithTexts(NSString *message, NSString *informative);

/// The alert of every tab for an agent or service that did not answer.
NSAlert *cannotConnectAlert();

// Each of these first forgets the keys and clicks that have come until then, see
// discardPendingInput: nobody has read the alert yet.

/// Shows the alert as a sheet on the window and returns at once; the window stays open when it
/// ends. delegate: the controller whose action is reported. A window of nil (it has been closed)
/// shows nothing. Main thread.
void showAsSheet(NSAlert *alert, NSWindow *window, id delegate);

/// The same for an alert that asks: delegate gets didEnd with the alert, the return code and
/// context, as of the platform's alerts.
void askAsSheet(NSAlert *alert, NSWindow *window, id delegate, SEL didEnd, void *context);

/// Runs the alert application-modally and returns when the user has dismissed it. For use where no
/// window of the application is open. The application runs behind all others and is hidden most of
/// the time, so it is brought to the front first: otherwise the user would wait for nothing.
void runModally(NSAlert *alert);
