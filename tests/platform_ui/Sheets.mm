#import "tests/platform_ui/SheetTest.h"

#include "tests/support/ChildProcess.h"

namespace {

/// What the window manager finds: without this it ends the program when the user closes the window.
bool acceptsCloseRequests(NSWindow *window) {
  const auto number = reinterpret_cast<unsigned long>([window windowRef]);
  ChildProcess asking({"/usr/bin/xprop", "-id", std::to_string(number), "WM_PROTOCOLS"});
  return asking.waitForEnd() == 0 && asking.output().find("WM_DELETE_WINDOW") != std::string::npos;
}

struct Sheets : SheetTest {};

}  // namespace

TEST_F(Sheets, BeginReturnsAtOnceWithTheSheetAttached) {
  begin(sheet);
  EXPECT_EQ([parent attachedSheet], sheet);
  EXPECT_TRUE([sheet isSheet]);
  EXPECT_TRUE([sheet isVisible]);
  EXPECT_TRUE(delegate->ends.empty());
}

TEST_F(Sheets, AWindowThatIsNoSheetSaysSo) {
  EXPECT_FALSE([sheet isSheet]);
  begin(sheet);
  EXPECT_FALSE([parent isSheet]);
  [NSApp endSheet:sheet];
  EXPECT_FALSE([sheet isSheet]);
  EXPECT_EQ([parent attachedSheet], nil);
}

TEST_F(Sheets, ClicksOnTheParentAreSwallowed) {
  postClick(button(parent));
  handlePostedEvents();
  ASSERT_EQ(delegate->clicks, 1);
  begin(sheet);
  postClick(button(parent));
  handlePostedEvents();
  EXPECT_EQ(delegate->clicks, 1);
}

TEST_F(Sheets, ClicksOnTheSheetArrive) {
  begin(sheet);
  postClick(button(sheet));
  handlePostedEvents();
  EXPECT_EQ(delegate->clicks, 1);
}

TEST_F(Sheets, KeysTypedAtTheSheetArrive) {
  begin(sheet);
  postKeys(sheet, @"abc");
  handlePostedEvents();
  EXPECT_TRUE([typed(sheet) isEqualToString:@"abc"]);
}

TEST_F(Sheets, KeysTypedAtTheParentReachTheSheet) {
  begin(sheet);
  postKeys(parent, @"xyz");
  handlePostedEvents();
  EXPECT_TRUE([typed(sheet) isEqualToString:@"xyz"]);
  EXPECT_EQ([typed(parent) length], 0u);
}

TEST_F(Sheets, AClickOnTheParentGivesTheSheetTheKeyboard) {
  begin(sheet);
  [second makeKeyAndOrderFront:nil];
  ASSERT_TRUE([second isKeyWindow]);
  postClick(parent, NSMakePoint(5, 5));
  handlePostedEvents();
  EXPECT_EQ([NSApp keyWindow], sheet);
}

TEST_F(Sheets, AParentMadeKeyGivesTheSheetTheKeyboard) {
  begin(sheet);
  [second makeKeyAndOrderFront:nil];
  [parent makeKeyAndOrderFront:nil];
  EXPECT_EQ([NSApp keyWindow], sheet);
  EXPECT_FALSE([parent isKeyWindow]);
  EXPECT_EQ([NSApp mainWindow], parent);
}

TEST_F(Sheets, FocusThatTheWindowServerGivesTheParentGoesToTheSheet) {
  begin(sheet);
  [second makeKeyAndOrderFront:nil];
  postWindowEvent(parent, GSAppKitWindowFocusIn);
  handlePostedEvents();
  EXPECT_EQ([NSApp keyWindow], sheet);
}

TEST_F(Sheets, TheCloseButtonOfTheParentDoesNothing) {
  begin(sheet);
  postWindowEvent(parent, GSAppKitWindowClose);
  handlePostedEvents();
  EXPECT_TRUE([parent isVisible]);
  [NSApp endSheet:sheet];
  postWindowEvent(parent, GSAppKitWindowClose);
  handlePostedEvents();
  EXPECT_FALSE([parent isVisible]);
}

TEST_F(Sheets, TheWindowManagerAsksASheetBeforeItClosesIt) {
  begin(sheet);
  EXPECT_TRUE(acceptsCloseRequests(sheet));
  postWindowEvent(sheet, GSAppKitWindowClose);
  handlePostedEvents();
  EXPECT_TRUE([sheet isVisible]);
}

TEST_F(Sheets, TheWindowManagerAsksASheetStillAfterItWasBroughtToTheFront) {
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

TEST_F(Sheets, TimersOfTheDefaultModeGoOn) {
  begin(sheet);
  NSTimer *const timer = [NSTimer scheduledTimerWithTimeInterval:0.01
                                                          target:delegate
                                                        selector:@selector(ticked:)
                                                        userInfo:nil
                                                         repeats:YES];
  EXPECT_TRUE(handleEventsUntil([this] { return delegate->ticks > 2; }));
  [timer invalidate];
}

TEST_F(Sheets, ASecondSheetWaitsForTheFirst) {
  begin(sheet);
  begin(second);
  EXPECT_FALSE([second isVisible]);
  EXPECT_EQ([parent attachedSheet], sheet);
  [NSApp endSheet:sheet];
  EXPECT_FALSE([sheet isVisible]);
  EXPECT_TRUE([second isVisible]);
  EXPECT_EQ([parent attachedSheet], second);
}

TEST_F(Sheets, SheetsOfDifferentWindowsDoNotWaitForEachOther) {
  NSWindow *const other = [newWindow(NSMakeRect(50, 50, 400, 300)) autorelease];
  [other orderFront:nil];
  begin(sheet);
  begin(second, other);
  EXPECT_TRUE([sheet isVisible]);
  EXPECT_TRUE([second isVisible]);
  [NSApp endSheet:second];
  [other close];
}

TEST_F(Sheets, AWaitingSheetThatIsEndedIsNeverShown) {
  begin(sheet);
  begin(second);
  [NSApp endSheet:second returnCode:5];
  ASSERT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ(delegate->ends[0].code, 5);
  EXPECT_FALSE(delegate->ends[0].wasOnScreen);
  [NSApp endSheet:sheet];
  EXPECT_FALSE([second isVisible]);
  EXPECT_EQ([parent attachedSheet], nil);
}

TEST_F(Sheets, TheDelegateGetsSheetReturnCodeAndContext) {
  begin(sheet);
  [NSApp endSheet:sheet returnCode:7];
  ASSERT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ(delegate->ends[0].subject, sheet);
  EXPECT_EQ(delegate->ends[0].code, 7);
  EXPECT_EQ(delegate->ends[0].context, this);
}

TEST_F(Sheets, WithoutAReturnCodeTheSheetWasStopped) {
  begin(sheet);
  [NSApp endSheet:sheet];
  ASSERT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ(delegate->ends[0].code, NSRunStoppedResponse);
}

TEST_F(Sheets, TheDelegateIsToldWhileTheSheetIsStillToBeSeen) {
  begin(sheet);
  [NSApp endSheet:sheet];
  ASSERT_EQ(delegate->ends.size(), 1u);
  EXPECT_TRUE(delegate->ends[0].wasOnScreen);
  EXPECT_FALSE([sheet isVisible]);
}

TEST_F(Sheets, EndingTwiceTellsTheDelegateOnce) {
  begin(sheet);
  [NSApp endSheet:sheet];
  [NSApp endSheet:sheet];
  EXPECT_EQ(delegate->ends.size(), 1u);
}

TEST_F(Sheets, BeginningASheetTwiceIsBeginningItOnce) {
  begin(sheet);
  begin(sheet);
  [NSApp endSheet:sheet];
  EXPECT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ([parent attachedSheet], nil);
}

TEST_F(Sheets, EndingWhatIsNoSheetDoesNothing) {
  [NSApp endSheet:sheet];
  [NSApp endSheet:parent returnCode:1];
  [NSApp endSheet:nil];
  EXPECT_TRUE([parent isVisible]);
  EXPECT_TRUE(delegate->ends.empty());
}

TEST_F(Sheets, BeginningNoSheetDoesNothing) {
  begin(nil);
  EXPECT_EQ([parent attachedSheet], nil);
}

TEST_F(Sheets, AWindowCannotBeItsOwnSheetNorThatOfItsSheet) {
  begin(parent, parent);
  EXPECT_EQ([parent attachedSheet], nil);
  begin(sheet);
  begin(parent, sheet);
  EXPECT_EQ([sheet attachedSheet], nil);
}

TEST_F(Sheets, WithoutAParentItStandsAloneAndEndsAsUsual) {
  begin(sheet, nil);
  EXPECT_TRUE([sheet isVisible]);
  EXPECT_FALSE([sheet isSheet]);
  [NSApp endSheet:sheet returnCode:3];
  EXPECT_FALSE([sheet isVisible]);
  ASSERT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ(delegate->ends[0].code, 3);
}

TEST_F(Sheets, WithoutDelegateOrSelectorNobodyIsTold) {
  [NSApp beginSheet:sheet
      modalForWindow:parent
       modalDelegate:nil
      didEndSelector:@selector(sheetDidEnd:returnCode:contextInfo:)
         contextInfo:nullptr];
  [NSApp endSheet:sheet];
  [NSApp beginSheet:sheet
      modalForWindow:parent
       modalDelegate:delegate
      didEndSelector:nullptr
         contextInfo:nullptr];
  [NSApp endSheet:sheet];
  [NSApp beginSheet:sheet
      modalForWindow:parent
       modalDelegate:delegate
      didEndSelector:@selector(noSuchMethod:)
         contextInfo:nullptr];
  [NSApp endSheet:sheet];
  EXPECT_FALSE([sheet isVisible]);
  EXPECT_TRUE(delegate->ends.empty());
}

TEST_F(Sheets, TheParentGetsTheKeyboardBack) {
  begin(sheet);
  ASSERT_TRUE([sheet isKeyWindow]);
  [NSApp endSheet:sheet];
  EXPECT_EQ([NSApp keyWindow], parent);
  postKeys(parent, @"back");
  handlePostedEvents();
  EXPECT_TRUE([typed(parent) isEqualToString:@"back"]);
}

TEST_F(Sheets, AnotherWindowThatHasTheKeyboardKeepsIt) {
  begin(sheet);
  [second makeKeyAndOrderFront:nil];
  [NSApp endSheet:sheet];
  EXPECT_EQ([NSApp keyWindow], second);
}

TEST_F(Sheets, TheDelegateCanBeginTheNextSheet) {
  begin(sheet);
  delegate->beginsNext = second;
  delegate->nextParent = parent;
  [NSApp endSheet:sheet];
  EXPECT_EQ([parent attachedSheet], second);
  EXPECT_TRUE([second isVisible]);
  EXPECT_FALSE([sheet isVisible]);
}

TEST_F(Sheets, TheDelegateCanOrderTheSheetOutAndBeginTheNext) {
  begin(sheet);
  delegate->ordersOut = true;
  delegate->beginsNext = second;
  delegate->nextParent = parent;
  [NSApp endSheet:sheet];
  EXPECT_EQ([parent attachedSheet], second);
  EXPECT_EQ([NSApp keyWindow], second);
}

TEST_F(Sheets, TheDelegateCanBeginTheSameSheetAgain) {
  begin(sheet);
  delegate->beginsNext = sheet;
  delegate->nextParent = parent;
  [NSApp endSheet:sheet];
  EXPECT_EQ([parent attachedSheet], sheet);
  EXPECT_TRUE([sheet isVisible]);
  [NSApp endSheet:sheet];
  EXPECT_FALSE([sheet isVisible]);
}

TEST_F(Sheets, ASheetCanHaveASheet) {
  begin(sheet);
  begin(second, sheet);
  EXPECT_EQ([sheet attachedSheet], second);
  postKeys(parent, @"deep");
  handlePostedEvents();
  EXPECT_TRUE([typed(second) isEqualToString:@"deep"]);
  [NSApp endSheet:second];
  EXPECT_EQ([NSApp keyWindow], sheet);
}

TEST_F(Sheets, ASheetThatEndsTakesItsOwnSheetWithIt) {
  begin(sheet);
  begin(second, sheet);
  [NSApp endSheet:sheet];
  EXPECT_FALSE([second isVisible]);
  EXPECT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ([NSApp keyWindow], parent);
}
