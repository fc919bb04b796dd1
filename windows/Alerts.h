#pragma once

#import <AppKit/AppKit.h>

/// An alert with the application's own icon and the platform's default button.
/// message and informative: shown as they are; nil for none. Autoreleased; main thread.
NSAlert *alertWithTexts(NSString *message, NSString *informative);

/// The alert of every tab for an agent or service that did not answer.
NSAlert *cannotConnectAlert();

// Each of these first discards pending keys and clicks (discardPendingInput), which would dismiss
// the alert unread.

/// Shows the alert as a sheet on the window and returns at once; the window stays open when it
/// ends. delegate: the tab controller. Does nothing without a window, which may have been closed.
/// Main thread.
void showAsSheet(NSAlert *alert, NSWindow *window, id delegate);

/// The same for a question: delegate gets didEnd with the alert, the return code and context.
void askAsSheet(NSAlert *alert, NSWindow *window, id delegate, SEL didEnd, void *context);

/// Runs the alert application-modally and returns when the user has dismissed it. For use where no
/// window of the application is open. Unhides the application and activates nothing: that an alert
/// of an application in the background is in front of others is the platform's business.
void runModally(NSAlert *alert);
