#import "tests/platform/sheets/SheetTest.h"

#include "tests/support/ChildProcess.h"

namespace {

/// Whether the window accepts WM_DELETE_WINDOW. Without it the window manager kills the program
/// when the user closes the window.
bool acceptsCloseRequests(NSWindow *window) {
  const auto number = reinterpret_cast<unsigned long>([window windowRef]);
  ChildProcess asking({"/usr/bin/xprop", "-id", std::to_string(number), "WM_PROTOCOLS"});
  return asking.waitForEnd() == 0 && asking.output().find("WM_DELETE_WINDOW") != std::string::npos;
}

struct SheetEvents : SheetTest {};

}  // namespace

TEST_F(SheetEvents, ClicksOnTheParentAreSwallowed) {
  postClick(button(parent));
  handlePostedEvents();
  ASSERT_EQ(delegate->clicks, 1);
  begin(sheet);
  postClick(button(parent));
  handlePostedEvents();
  EXPECT_EQ(delegate->clicks, 1);
}

TEST_F(SheetEvents, ClicksOnTheSheetArrive) {
  begin(sheet);
  postClick(button(sheet));
  handlePostedEvents();
  EXPECT_EQ(delegate->clicks, 1);
}

TEST_F(SheetEvents, KeysTypedAtTheSheetArrive) {
  begin(sheet);
  postKeys(sheet, @"abc");
  handlePostedEvents();
  EXPECT_TRUE([typed(sheet) isEqualToString:@"abc"]);
}

TEST_F(SheetEvents, KeysTypedAtTheParentReachTheSheet) {
  begin(sheet);
  postKeys(parent, @"xyz");
  handlePostedEvents();
  EXPECT_TRUE([typed(sheet) isEqualToString:@"xyz"]);
  EXPECT_EQ([typed(parent) length], 0u);
}

TEST_F(SheetEvents, AClickOnTheParentGivesTheSheetTheKeyboard) {
  begin(sheet);
  [second makeKeyAndOrderFront:nil];
  ASSERT_TRUE([second isKeyWindow]);
  postClick(parent, NSMakePoint(5, 5));
  handlePostedEvents();
  EXPECT_EQ([NSApp keyWindow], sheet);
}

TEST_F(SheetEvents, AParentMadeKeyGivesTheSheetTheKeyboard) {
  begin(sheet);
  [second makeKeyAndOrderFront:nil];
  [parent makeKeyAndOrderFront:nil];
  EXPECT_EQ([NSApp keyWindow], sheet);
  EXPECT_FALSE([parent isKeyWindow]);
  EXPECT_EQ([NSApp mainWindow], parent);
}

TEST_F(SheetEvents, FocusThatTheWindowServerGivesTheParentGoesToTheSheet) {
  begin(sheet);
  [second makeKeyAndOrderFront:nil];
  postWindowEvent(parent, GSAppKitWindowFocusIn);
  handlePostedEvents();
  EXPECT_EQ([NSApp keyWindow], sheet);
}

TEST_F(SheetEvents, TheCloseButtonOfTheParentDoesNothing) {
  begin(sheet);
  postWindowEvent(parent, GSAppKitWindowClose);
  handlePostedEvents();
  EXPECT_TRUE([parent isVisible]);
  [NSApp endSheet:sheet];
  postWindowEvent(parent, GSAppKitWindowClose);
  handlePostedEvents();
  EXPECT_FALSE([parent isVisible]);
}

TEST_F(SheetEvents, TheWindowManagerAsksASheetBeforeItClosesIt) {
  begin(sheet);
  EXPECT_TRUE(acceptsCloseRequests(sheet));
  postWindowEvent(sheet, GSAppKitWindowClose);
  handlePostedEvents();
  EXPECT_TRUE([sheet isVisible]);
}

TEST_F(SheetEvents, TheWindowManagerAsksASheetStillAfterItWasBroughtToTheFront) {
  begin(sheet);
  [second makeKeyAndOrderFront:nil];
  postClick(sheet, NSMakePoint(5, 5));
  handlePostedEvents();
  EXPECT_TRUE(acceptsCloseRequests(sheet));
  [NSApp deactivate];
  [NSApp activateIgnoringOtherApps:YES];
  EXPECT_TRUE(acceptsCloseRequests(sheet));
  [second makeKeyAndOrderFront:nil];
  postClick(parent, NSMakePoint(5, 5));
  handlePostedEvents();
  EXPECT_TRUE(acceptsCloseRequests(sheet));
}

TEST_F(SheetEvents, TimersOfTheDefaultModeGoOn) {
  begin(sheet);
  NSTimer *const timer = [NSTimer scheduledTimerWithTimeInterval:0.01
                                                          target:delegate
                                                        selector:@selector(ticked:)
                                                        userInfo:nil
                                                         repeats:YES];
  EXPECT_TRUE(handleEventsUntil([this] { return delegate->ticks > 2; }));
  [timer invalidate];
}
