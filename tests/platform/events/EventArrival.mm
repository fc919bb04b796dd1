#include <gtest/gtest.h>

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xlib.h>

namespace {

constexpr NSTimeInterval kLongestWaitSeconds = 10;

Display *display() {
  return static_cast<Display *>([GSCurrentServer() serverDevice]);
}

/// Makes the server send the release of a mouse button to a window.
void sendRelease(NSWindow *window) {
  XEvent event = {};
  event.xbutton.type = ButtonRelease;
  event.xbutton.button = Button1;
  event.xbutton.window = reinterpret_cast<Window>(
      [GSCurrentServer() windowDevice:static_cast<int>([window windowNumber])]);
  event.xbutton.root = DefaultRootWindow(display());
  event.xbutton.same_screen = True;
  XSendEvent(display(), event.xbutton.window, False, ButtonReleaseMask, &event);
}

}  // namespace

/// Makes an event arrive, and be read, after the application has checked its queue and before the
/// run loop waits, which is when timers fire.
@interface LateArrival : NSObject {
 @private
  NSWindow *_window;
}
- (id)initWithWindow:(NSWindow *)window;
- (void)arrive:(NSTimer *)timer;
@end

@implementation LateArrival

- (id)initWithWindow:(NSWindow *)window {
  if ((self = [super init])) _window = window;
  return self;
}

- (void)arrive:(NSTimer *)timer {
  (void)timer;
  sendRelease(_window);
  XSync(display(), False);
}

@end

namespace {

struct EventArrival : testing::Test {
  NSWindow *const window = [[[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 200, 100)
                                                        styleMask:NSTitledWindowMask
                                                          backing:NSBackingStoreBuffered
                                                            defer:NO] autorelease];

  EventArrival() {
    [window setReleasedWhenClosed:NO];
    [window orderFront:nil];
    // The reaction is complete when no event has arrived for a while.
    while ([NSApp nextEventMatchingMask:NSAnyEventMask
                              untilDate:[NSDate dateWithTimeIntervalSinceNow:0.2]
                                 inMode:NSDefaultRunLoopMode
                                dequeue:YES] != nil) {
    }
  }
  ~EventArrival() override { [window close]; }

  /// Whether a mouse tracking loop gets a release that arrives late.
  bool hearsLateRelease() const {
    LateArrival *const late = [[[LateArrival alloc] initWithWindow:window] autorelease];
    [[NSRunLoop currentRunLoop] addTimer:[NSTimer timerWithTimeInterval:0
                                                                 target:late
                                                               selector:@selector(arrive:)
                                                               userInfo:nil
                                                                repeats:NO]
                                 forMode:NSEventTrackingRunLoopMode];
    NSDate *const limit = [NSDate dateWithTimeIntervalSinceNow:kLongestWaitSeconds];
    NSEvent *const event = [NSApp nextEventMatchingMask:NSLeftMouseUpMask
                                              untilDate:limit
                                                 inMode:NSEventTrackingRunLoopMode
                                                dequeue:YES];
    // The last check, after the time-out, finds an event that has not ended the wait.
    return event != nil && [limit timeIntervalSinceNow] > 0;
  }
};

}  // namespace

TEST_F(EventArrival, OneThatWasReadWithAnAnswerOfTheServerEndsTheWait) {
  EXPECT_TRUE(hearsLateRelease());
}
