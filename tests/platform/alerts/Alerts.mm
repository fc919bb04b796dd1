#import "platform/gnustep/alerts/AlertPanel.h"
#import "tests/platform/alerts/AlertTest.h"

#include "tests/support/Strings.h"

namespace {

/// The number of panels, visible or not. Not of all windows, because the platform caches some.
int alertPanels() {
  int count = 0;
  for (NSWindow *window in [NSApp windows]) count += [window isKindOfClass:[AlertPanel class]];
  return count;
}

struct Alerts : AlertTest {
  /// Runs the alert modally while these steps are taken.
  NSInteger run(std::vector<std::function<void(NSWindow *)>> steps) {
    const ModalUser user(std::move(steps));
    const NSInteger code = [alert runModal];
    EXPECT_FALSE(user.hadToAbort());
    return code;
  }

  void addTwoButtons() {
    [alert addButtonWithTitle:@"Try Again"];
    [alert addButtonWithTitle:@"Cancel"];
  }
};

}  // namespace

TEST_F(Alerts, AsASheetItReturnsAtOnce) {
  begin();
  EXPECT_EQ([parent attachedSheet], panel());
  EXPECT_TRUE([panel() isVisible]);
  EXPECT_TRUE(delegate->ends.empty());
}

TEST_F(Alerts, TheSheetsDelegateGetsAlertCodeAndContext) {
  addTwoButtons();
  begin();
  postClick(button(1));
  handlePostedEvents();
  ASSERT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ(delegate->ends[0].subject, alert);
  EXPECT_EQ(delegate->ends[0].code, NSAlertSecondButtonReturn);
  EXPECT_EQ(delegate->ends[0].context, this);
  EXPECT_EQ([parent attachedSheet], nil);
}

TEST_F(Alerts, ButtonsAreCountedFromAThousand) {
  for (NSString *title in @[ @"A", @"B", @"C", @"D" ]) [alert addButtonWithTitle:title];
  for (NSUInteger i = 0; i < 4; ++i) {
    begin();
    [button(i) performClick:nil];
    ASSERT_EQ(delegate->ends.size(), i + 1);
    EXPECT_EQ(delegate->ends[i].code, 1000 + static_cast<NSInteger>(i));
  }
}

TEST_F(Alerts, WithoutSelectorOrDelegateTheSheetEndsAllTheSame) {
  begin(nullptr);
  [button(0) performClick:nil];
  EXPECT_EQ([parent attachedSheet], nil);
  [alert beginSheetModalForWindow:parent
                    modalDelegate:nil
                   didEndSelector:@selector(alertDidEnd:returnCode:contextInfo:)
                      contextInfo:nullptr];
  [button(0) performClick:nil];
  EXPECT_EQ([parent attachedSheet], nil);
  EXPECT_TRUE(delegate->ends.empty());
}

TEST_F(Alerts, TwoSheetsOfOneWindowAppearOneAfterTheOther) {
  NSAlert *const next = [[[NSAlert alloc] init] autorelease];
  begin();
  [next beginSheetModalForWindow:parent
                   modalDelegate:nil
                  didEndSelector:nullptr
                     contextInfo:nullptr];
  EXPECT_FALSE([[next window] isVisible]);
  [button(0) performClick:nil];
  EXPECT_EQ([parent attachedSheet], [next window]);
}

TEST_F(Alerts, ASheetsAlertLivesUntilItsEndAndNoLonger) {
  @autoreleasepool {
    NSAlert *const own = [[[NSAlert alloc] init] autorelease];
    [own setMessageText:@"Mine"];
    [own beginSheetModalForWindow:parent
                    modalDelegate:delegate
                   didEndSelector:@selector(alertDidEnd:returnCode:contextInfo:)
                      contextInfo:nullptr];
  }
  ASSERT_EQ(alertPanels(), 1);
  @autoreleasepool {
    EXPECT_EQ(shownTexts([parent attachedSheet]), "Mine");
    postKeys([parent attachedSheet], @"\r");
    handlePostedEvents();
  }
  EXPECT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ(alertPanels(), 0);
}

TEST_F(Alerts, AParentThatClosesTakesItsAlert) {
  @autoreleasepool {
    [[[[NSAlert alloc] init] autorelease]
        beginSheetModalForWindow:parent
                   modalDelegate:delegate
                  didEndSelector:@selector(alertDidEnd:returnCode:contextInfo:)
                     contextInfo:nullptr];
    ASSERT_EQ(alertPanels(), 1);
    [parent close];
  }
  EXPECT_TRUE(delegate->ends.empty());
  EXPECT_EQ(alertPanels(), 0);
}

TEST_F(Alerts, ReturnPressesTheFirstButtonOfASheet) {
  addTwoButtons();
  begin();
  postKeys(parent, @"\r");
  handlePostedEvents();
  ASSERT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ(delegate->ends[0].code, NSAlertFirstButtonReturn);
}

TEST_F(Alerts, EnterPressesTheFirstButtonOfASheet) {
  addTwoButtons();
  begin();
  postKeys(panel(), @"\x03");
  handlePostedEvents();
  ASSERT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ(delegate->ends[0].code, NSAlertFirstButtonReturn);
}

TEST_F(Alerts, EscapePressesCancel) {
  addTwoButtons();
  begin();
  postKeys(panel(), @"\x1b");
  handlePostedEvents();
  ASSERT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ(delegate->ends[0].code, NSAlertSecondButtonReturn);
}

TEST_F(Alerts, EscapeDoesNothingWhereThereIsNoCancel) {
  [alert addButtonWithTitle:@"OK"];
  begin();
  postKeys(panel(), @"\x1b");
  handlePostedEvents();
  EXPECT_TRUE(delegate->ends.empty());
  EXPECT_TRUE([panel() isVisible]);
}

TEST_F(Alerts, SpacePressesTheButtonWithTheKeyboard) {
  addTwoButtons();
  begin();
  postKeys(panel(), @" ");
  handlePostedEvents();
  ASSERT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ(delegate->ends[0].code, NSAlertFirstButtonReturn);
}

TEST_F(Alerts, TabMovesTheKeyboardToTheNextButton) {
  addTwoButtons();
  begin();
  postKeys(panel(), @"\t ");
  handlePostedEvents();
  ASSERT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ(delegate->ends[0].code, NSAlertSecondButtonReturn);
}

TEST_F(Alerts, WithoutButtonsThereIsAnOkButton) {
  begin();
  ASSERT_EQ([[alert buttons] count], 1u);
  EXPECT_EQ(text([button(0) title]), "OK");
}

TEST_F(Alerts, ShowsBothTexts) {
  [alert setMessageText:@"It failed"];
  [alert setInformativeText:@"Try again"];
  EXPECT_EQ(shownTexts(panel()), "It failed|Try again");
}

TEST_F(Alerts, TextsSetAfterItsWindowWasAskedForAreShown) {
  [alert window];
  [alert setMessageText:@"Later"];
  begin();
  EXPECT_EQ(shownTexts(panel()), "Later");
}

TEST_F(Alerts, RunModallyAClickEndsIt) {
  addTwoButtons();
  const NSInteger code = run({[this](NSWindow *) { postClick(button(1)); }});
  EXPECT_EQ(code, NSAlertSecondButtonReturn);
  EXPECT_FALSE([panel() isVisible]);
}

TEST_F(Alerts, RunModallyAButtonPressedByATimerEndsIt) {
  addTwoButtons();
  const NSInteger code = run({[this](NSWindow *) { [button(0) performClick:nil]; }});
  EXPECT_EQ(code, NSAlertFirstButtonReturn);
}

TEST_F(Alerts, RunModallyReturnEndsIt) {
  const NSInteger code = run({[](NSWindow *window) { postKeys(window, @"\r"); }});
  EXPECT_EQ(code, NSAlertFirstButtonReturn);
}

TEST_F(Alerts, RunModallyEscapeEndsItWithCancel) {
  addTwoButtons();
  const NSInteger code = run({[](NSWindow *window) { postKeys(window, @"\x1b"); }});
  EXPECT_EQ(code, NSAlertSecondButtonReturn);
}

TEST_F(Alerts, TheWindowManagersCloseButtonCancels) {
  addTwoButtons();
  const NSInteger code =
      run({[](NSWindow *window) { postWindowEvent(window, GSAppKitWindowClose); }});
  EXPECT_EQ(code, NSAlertSecondButtonReturn);
}

TEST_F(Alerts, TheWindowManagersCloseButtonGivesTheOnlyAnswer) {
  begin();
  postWindowEvent(panel(), GSAppKitWindowClose);
  handlePostedEvents();
  ASSERT_EQ(delegate->ends.size(), 1u);
  EXPECT_EQ(delegate->ends[0].code, NSAlertFirstButtonReturn);
}

TEST_F(Alerts, TheWindowManagersCloseButtonDecidesNothing) {
  [alert addButtonWithTitle:@"Save"];
  [alert addButtonWithTitle:@"Throw Away"];
  begin();
  postWindowEvent(panel(), GSAppKitWindowClose);
  handlePostedEvents();
  EXPECT_TRUE(delegate->ends.empty());
  EXPECT_TRUE([panel() isVisible]);
}

TEST_F(Alerts, RunModallyOtherWindowsGetNoClicks) {
  run({[this](NSWindow *) { postClick(SheetTest::button(parent)); },
       [this](NSWindow *) { [button(0) performClick:nil]; }});
  handlePostedEvents();
  EXPECT_EQ(delegate->clicks, 0);
}

TEST_F(Alerts, RunModallyTwiceInARow) {
  addTwoButtons();
  EXPECT_EQ(run({[this](NSWindow *) { [button(0) performClick:nil]; }}), 1000);
  EXPECT_EQ(run({[this](NSWindow *) { [button(1) performClick:nil]; }}), 1001);
}

TEST_F(Alerts, RunModallyOverASheetLeavesTheSheetUp) {
  SheetTest::begin(sheet);
  EXPECT_EQ(run({[this](NSWindow *) { postClick(button(0)); }}), 1000);
  EXPECT_EQ([parent attachedSheet], sheet);
  postClick(SheetTest::button(sheet));
  handlePostedEvents();
  EXPECT_EQ(delegate->clicks, 1);
}

TEST_F(Alerts, ManyAlertsLeaveNoWindows) {
  for (int i = 0; i < 200; ++i) {
    @autoreleasepool {
      NSAlert *const own = [[[NSAlert alloc] init] autorelease];
      [own beginSheetModalForWindow:parent
                      modalDelegate:nil
                     didEndSelector:nullptr
                        contextInfo:nullptr];
      postClick([[own buttons] objectAtIndex:0]);
      handlePostedEvents();
    }
  }
  EXPECT_EQ(alertPanels(), 0);
  EXPECT_EQ([NSApp keyWindow], parent);
}
