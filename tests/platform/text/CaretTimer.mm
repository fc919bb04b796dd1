#include <gtest/gtest.h>

#import <AppKit/AppKit.h>

#include "tests/support/DueTimers.h"
#import "tests/support/Events.h"

namespace {

/// A window whose first responder is a text view.
struct CaretTimer : testing::Test {
  NSWindow *window = [[NSWindow alloc] initWithContentRect:NSMakeRect(200, 200, 300, 200)
                                                 styleMask:NSTitledWindowMask
                                                   backing:NSBackingStoreBuffered
                                                     defer:YES];
  NSTextView *text = [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, 300, 200)] autorelease];

  CaretTimer() {
    [window setReleasedWhenClosed:NO];
    [[window contentView] addSubview:text];
    [text setString:@"Dear all"];
    [NSApp activateIgnoringOtherApps:YES];
    [window makeKeyAndOrderFront:nil];
    [window makeFirstResponder:text];
    [text setSelectedRange:NSMakeRange(0, 0)];
    handlePostedEvents();
  }

  ~CaretTimer() override {
    [window close];
    [window release];
    handlePostedEvents();
  }

  static bool comesToRest() {
    return handleEventsUntil([] { return nothingIsDueSoon(); });
  }
};

}  // namespace

TEST_F(CaretTimer, ACaretBlinks) {
  EXPECT_FALSE(nothingIsDueSoon());
}

TEST_F(CaretTimer, SelectedTextCostsNothingAndTheCaretBlinksAgainAfterwards) {
  [text selectAll:nil];
  EXPECT_TRUE(comesToRest());
  [text setSelectedRange:NSMakeRange(4, 0)];
  EXPECT_FALSE(nothingIsDueSoon());
}

TEST_F(CaretTimer, SelectedTextOfAWindowThatIsKeyNoMoreCostsNothing) {
  [text selectAll:nil];
  [window resignKeyWindow];
  EXPECT_TRUE(comesToRest());
}

TEST_F(CaretTimer, SelectedTextOfAClosedWindowCostsNothing) {
  [text selectAll:nil];
  [window close];
  EXPECT_TRUE(comesToRest());
}

TEST_F(CaretTimer, ACaretBlinksAgainWhenItsWindowIsKeyAgain) {
  [text selectAll:nil];
  [window resignKeyWindow];
  ASSERT_TRUE(comesToRest());
  [text setSelectedRange:NSMakeRange(0, 0)];
  [window makeKeyWindow];
  EXPECT_FALSE(nothingIsDueSoon());
}
