#import "tests/support/Events.h"

namespace {

NSEvent *otherEvent(NSEventType type, NSWindow *window, short subtype, NSInteger data) {
  return [NSEvent otherEventWithType:type
                            location:NSZeroPoint
                       modifierFlags:0
                           timestamp:0
                        windowNumber:[window windowNumber]
                             context:[window graphicsContext]
                             subtype:subtype
                               data1:data
                               data2:0];
}

void postMouse(NSEventType type, NSWindow *window, NSPoint place, float pressure) {
  [NSApp postEvent:[NSEvent mouseEventWithType:type
                                      location:place
                                 modifierFlags:0
                                     timestamp:0
                                  windowNumber:[window windowNumber]
                                       context:[window graphicsContext]
                                   eventNumber:1
                                    clickCount:1
                                      pressure:pressure]
           atStart:NO];
}

}  // namespace

void handlePostedEvents() {
  static NSInteger posts = 0;
  const NSInteger mark = ++posts;
  [NSApp postEvent:otherEvent(NSApplicationDefined, nil, 0, mark) atStart:NO];
  handleEventsUntil([&] {
    NSEvent *const event = [NSApp currentEvent];
    return [event type] == NSApplicationDefined && [event data1] == mark;
  });
  // The queue was never empty, so the run loop has not run, which would remove its invalid timers.
  [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate distantPast]];
}

void postClick(NSWindow *window, NSPoint place) {
  postMouse(NSLeftMouseDown, window, place, 1);
  postMouse(NSLeftMouseUp, window, place, 0);
}

void postClick(NSView *control) {
  const NSRect bounds = [control bounds];
  const NSPoint middle = NSMakePoint(NSMidX(bounds), NSMidY(bounds));
  postClick([control window], [control convertPoint:middle toView:nil]);
}

void postKeys(NSWindow *window, NSString *characters) {
  for (NSUInteger i = 0; i < [characters length]; ++i) {
    NSString *const key = [characters substringWithRange:NSMakeRange(i, 1)];
    for (const NSEventType type : {NSKeyDown, NSKeyUp}) {
      [NSApp postEvent:[NSEvent keyEventWithType:type
                                              location:NSZeroPoint
                                         modifierFlags:0
                                             timestamp:0
                                          windowNumber:[window windowNumber]
                                               context:[window graphicsContext]
                                            characters:key
                           charactersIgnoringModifiers:key
                                             isARepeat:NO
                                               keyCode:0]
               atStart:NO];
    }
  }
}

void postWindowEvent(NSWindow *window, short subtype) {
  [NSApp postEvent:otherEvent(NSAppKitDefined, window, subtype, 0) atStart:NO];
}

bool isOnScreen(NSWindow *window) {
  return NSContainsRect([[NSScreen mainScreen] visibleFrame], [window frame]);
}
