#pragma once

#import <AppKit/AppKit.h>

#include "tests/support/ChildProcess.h"

/// Takes events from the application's queue and dispatches them, as its main loop does, until
/// `condition` holds, at most a minute; answers whether it came to hold.
template <class Condition>
bool dispatchUntil(Condition condition) {
  return waitFor([&] {
    if (condition()) return true;
    @autoreleasepool {
      NSEvent *const event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                                untilDate:[NSDate dateWithTimeIntervalSinceNow:0.01]
                                                   inMode:NSDefaultRunLoopMode
                                                  dequeue:YES];
      if (event != nil) [NSApp sendEvent:event];
    }
    return false;
  });
}

/// Dispatches what is in the queue now, events that the program has posted included, and ends as
/// the main loop ends an event: with what the event has put off until its end (the closing of a
/// group of undo actions, for one).
inline void dispatchPosted() {
  NSEvent *const last = [NSEvent otherEventWithType:NSApplicationDefined
                                           location:NSZeroPoint
                                      modifierFlags:0
                                          timestamp:0
                                       windowNumber:0
                                            context:nil
                                            subtype:0
                                              data1:0
                                              data2:0];
  [NSApp postEvent:last atStart:NO];
  dispatchUntil([&] { return [NSApp currentEvent] == last; });
  [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate distantPast]];
}
