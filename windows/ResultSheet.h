#pragma once

#import <AppKit/AppKit.h>

/// The success sheet that all tab controllers show: one line of text that stays for three seconds
/// and then goes away by itself. Main thread.
struct ResultSheet {
  NSWindow *panel;    // the sheet
  NSTextField *text;  // its one label
  NSWindow *window;   // what it is attached to
};

/// Shows the text for `key` and brings the window and the application to the front: the application
/// lives behind the others, and its window with the good news would stay there. The keys and clicks
/// that have come until then are forgotten, see discardPendingInput. The three seconds run from
/// this call, after which `controller` gets killModalWindow: with the timer. `controller` is kept
/// alive until then.
void showSuccess(const ResultSheet &sheet, id controller, NSString *key);

/// Ends the sheet whose panel the timer of showSuccess carries. Harmless when the window has been
/// closed in the meantime.
void endSuccess(NSTimer *timer);
