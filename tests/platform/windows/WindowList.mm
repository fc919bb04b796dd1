#include <gtest/gtest.h>

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <malloc.h>

#include <vector>

namespace {

/// Two windows on a screen of which the test writes down the order, in the place of a window
/// manager.
struct WindowList : testing::Test {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  GSDisplayServer *server = GSCurrentServer();
  Display *display = static_cast<Display *>([server serverDevice]);
  Atom list = XInternAtom(display, "_NET_CLIENT_LIST_STACKING", False);
  NSWindow *first = openedWindow();
  NSWindow *second = openedWindow();

  ~WindowList() override {
    XDeleteProperty(display, DefaultRootWindow(display), list);
    for (NSWindow *window : {first, second}) {
      [window close];
      [window release];
    }
    [pool drain];
  }

  static NSWindow *openedWindow() {
    NSWindow *const window = [[NSWindow alloc] initWithContentRect:NSMakeRect(200, 200, 100, 100)
                                                         styleMask:NSTitledWindowMask
                                                           backing:NSBackingStoreBuffered
                                                             defer:NO];
    [window setReleasedWhenClosed:NO];
    [window orderFront:nil];
    return window;
  }

  Window device(NSWindow *window) const {
    const int number = static_cast<int>([window windowNumber]);
    return reinterpret_cast<Window>([server windowDevice:number]);
  }

  void writeDownFromBack(const std::vector<Window> &windows, Atom type = XA_WINDOW) const {
    XChangeProperty(display, DefaultRootWindow(display), list, type, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(windows.data()),
                    static_cast<int>(windows.size()));
  }

  static NSArray *numbers(NSArray *windows) { return [windows valueForKey:@"windowNumber"]; }
};

/// What so many questions for the list allocate and do not free, in bytes.
std::size_t keptAfterQuestions(GSDisplayServer *server, int count) {
  const std::size_t before = mallinfo2().uordblks;
  for (int i = 0; i < count; ++i) {
    @autoreleasepool {
      [server windowlist];
    }
  }
  const std::size_t after = mallinfo2().uordblks;
  return after > before ? after - before : 0;
}

}  // namespace

TEST_F(WindowList, IsInTheOrderThatTheWindowManagerWroteDown) {
  writeDownFromBack({device(first), device(second)});
  EXPECT_TRUE([[server windowlist] isEqual:numbers(@[ second, first ])]);
  writeDownFromBack({device(second), device(first)});
  EXPECT_TRUE([[server windowlist] isEqual:numbers(@[ first, second ])]);
}

TEST_F(WindowList, LeavesOutWindowsOfOtherApplicationsAndThoseThatAreNotShown) {
  const Window others =
      XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
  writeDownFromBack({others, device(second)});
  EXPECT_TRUE([[server windowlist] isEqual:numbers(@[ second ])]);
  XDestroyWindow(display, others);
}

TEST_F(WindowList, HasTheVisibleWindowsWhereTheWindowManagerShowsNone) {
  writeDownFromBack({});
  [second orderOut:nil];
  EXPECT_TRUE([[server windowlist] containsObject:[numbers(@[ first ]) lastObject]]);
  EXPECT_FALSE([[server windowlist] containsObject:[numbers(@[ second ]) lastObject]]);
}

TEST_F(WindowList, HasTheVisibleWindowsWhereThatIsNoListOfWindows) {
  writeDownFromBack({device(second)}, XA_CARDINAL);
  EXPECT_TRUE([[server windowlist] containsObject:[numbers(@[ first ]) lastObject]]);
}

TEST_F(WindowList, AnEmptyOneIsFreed) {
  constexpr int kQuestions = 1000;
  constexpr std::size_t kLeastBlock = 16;
  writeDownFromBack({});
  keptAfterQuestions(server, kQuestions);  // the first ones fill caches
  EXPECT_LT(keptAfterQuestions(server, kQuestions), kQuestions * kLeastBlock / 2);
}
