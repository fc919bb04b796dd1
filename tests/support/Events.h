#pragma once

#import <AppKit/AppKit.h>

#include "tests/support/ChildProcess.h"

/// Takes events from the application's queue, which also runs the run loop's default mode, and
/// dispatches them until `condition` holds, at most for kWaitTimeoutSeconds; returns whether it
/// holds.
template <class Condition>
bool handleEventsUntil(Condition condition) {
  const double start = detail::secondsNow();
  return waitFor([&]() -> bool {
    if (condition()) return true;
    @autoreleasepool {
      NSDate *const soon =
          [NSDate dateWithTimeIntervalSinceNow:detail::secondsUntilNextLook(start)];
      NSEvent *const event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                                untilDate:soon
                                                   inMode:NSDefaultRunLoopMode
                                                  dequeue:YES];
      if (event != nil) [NSApp sendEvent:event];
    }
    return condition();
  });
}

/// Dispatches what has been posted so far: until an event posted now has come out of the queue.
void handlePostedEvents();

/// A click of the left button at a place of the window's content, posted to the queue.
void postClick(NSWindow *window, NSPoint place);

/// A click in the middle of the control.
void postClick(NSView *control);

/// Presses and releases of keys in the window, one for each character, posted to the queue.
void postKeys(NSWindow *window, NSString *characters);

/// A window server's event for a window, posted to the queue.
void postWindowEvent(NSWindow *window, short subtype);

/// Whether the whole window is in the visible part of the screen.
bool isOnScreen(NSWindow *window);
