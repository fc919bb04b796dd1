#include <gtest/gtest.h>

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xlib.h>

namespace {

constexpr NSTimeInterval kLongestWaitSeconds = 10;

Display *display() {
  return static_cast<Display *>([GSCurrentServer() serverDevice]);
}

/// Has the server send the release of a mouse button to a window.
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

/// Lets an event arrive, and be read, when the application has looked at its events and the run
/// loop is about to wait for more: that is when it fires its timers.
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
    // What comes of that has come when nothing has come for a while.
    while ([NSApp nextEventMatchingMask:NSAnyEventMask
                              untilDate:[NSDate dateWithTimeIntervalSinceNow:0.2]
                                 inMode:NSDefaultRunLoopMode
                                dequeue:YES] != nil) {
    }
  }
  ~EventArrival() override { [window close]; }

  /// Whether a loop that tracks the mouse gets the release that arrives late.
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
    // The last look, when the time is over, finds what the wait has not.
    return event != nil && [limit timeIntervalSinceNow] > 0;
  }
};

}  // namespace

TEST_F(EventArrival, OneThatWasReadWithAnAnswerOfTheServerEndsTheWait) {
  EXPECT_TRUE(hearsLateRelease());
}
