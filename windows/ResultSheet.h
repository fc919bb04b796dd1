#pragma once

#import <AppKit/AppKit.h>

/// The success sheet of all tabs: one line of text that is shown for three seconds. Main thread.
struct ResultSheet {
  NSWindow *panel;    // the sheet
  NSTextField *text;  // its only label
  NSWindow *window;   // what it is attached to
};

/// Shows the text for `key` and brings the window and the application to the front, where the user
/// may have brought another one while the agent was asked. Discards pending keys and clicks. Three
/// seconds after this call `controller` gets killModalWindow: with the timer, which retains it
/// until then.
void showSuccess(const ResultSheet &sheet, id controller, NSString *key);

/// Ends the sheet that the timer of showSuccess belongs to. Harmless when the window has been
/// closed before.
void endSuccess(NSTimer *timer);
