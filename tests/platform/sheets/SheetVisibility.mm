#import "tests/platform/sheets/SheetTest.h"
#import "tests/support/CountsAsRunning.h"

namespace {

struct SheetVisibility : SheetTest {
  const CountsAsRunning running;

  SheetVisibility() {
    // As windows of interface files: the window server's window is destroyed when it is ordered
    // out.
    [sheet setOneShot:YES];
    EXPECT_TRUE([NSApp isRunning]);
  }

  NSWindow *alertOnParent() {
    NSAlert *const alert = [[[NSAlert alloc] init] autorelease];
    [alert beginSheetModalForWindow:parent
                      modalDelegate:nil
                     didEndSelector:nullptr
                        contextInfo:nullptr];
    return [parent attachedSheet];
  }
};

}  // namespace

TEST_F(SheetVisibility, ASheetThatIsOrderedOutBeforeItsEndIsNotVisible) {
  begin(sheet);
  ASSERT_TRUE([sheet isKeyWindow]);
  [sheet orderOut:nil];
  EXPECT_FALSE([sheet isVisible]);
  [NSApp endSheet:sheet];
  EXPECT_FALSE([sheet isVisible]);
}

TEST_F(SheetVisibility, ASheetThatKeepsItsWindowNumberIsNotVisibleEither) {
  [sheet setOneShot:NO];
  begin(sheet);
  ASSERT_TRUE([sheet isKeyWindow]);
  [sheet orderOut:nil];
  EXPECT_FALSE([sheet isVisible]);
  [NSApp endSheet:sheet];
  EXPECT_FALSE([sheet isVisible]);
}

TEST_F(SheetVisibility, TheParentOfASheetThatIsOrderedOutBeforeItsEndHasTheKeyboardAfterwards) {
  begin(sheet);
  ASSERT_TRUE([sheet isKeyWindow]);
  [sheet orderOut:nil];
  [NSApp endSheet:sheet];
  EXPECT_TRUE([parent isKeyWindow]);
}

TEST_F(SheetVisibility, ASheetThatHasEndedIsNotVisible) {
  begin(sheet);
  ASSERT_TRUE([sheet isKeyWindow]);
  [NSApp endSheet:sheet];
  EXPECT_FALSE([sheet isVisible]);
  EXPECT_TRUE([parent isKeyWindow]);
}

TEST_F(SheetVisibility, ASheetThatItsDelegateClosesIsNotVisible) {
  delegate->closes = sheet;
  begin(sheet);
  ASSERT_TRUE([sheet isKeyWindow]);
  [NSApp endSheet:sheet];
  EXPECT_FALSE([sheet isVisible]);
  EXPECT_TRUE([parent isKeyWindow]);
}

TEST_F(SheetVisibility, ASheetOfAParentThatClosesIsNotVisible) {
  begin(sheet);
  ASSERT_TRUE([sheet isKeyWindow]);
  [parent close];
  EXPECT_FALSE([sheet isVisible]);
}

TEST_F(SheetVisibility, AnAlertThatIsAnsweredIsNotVisible) {
  NSWindow *const alert = [[alertOnParent() retain] autorelease];
  ASSERT_TRUE([alert isVisible] && [alert isKeyWindow]);
  [[alert defaultButtonCell] performClick:nil];
  EXPECT_FALSE([alert isVisible]);
  EXPECT_TRUE([parent isKeyWindow]);
}

TEST_F(SheetVisibility, AnAlertThatIsOrderedOutBeforeItsEndIsNotVisible) {
  NSWindow *const alert = [[alertOnParent() retain] autorelease];
  ASSERT_TRUE([alert isVisible] && [alert isKeyWindow]);
  [alert orderOut:nil];
  EXPECT_FALSE([alert isVisible]);
  [NSApp endSheet:alert];
  EXPECT_FALSE([alert isVisible]);
  EXPECT_TRUE([parent isKeyWindow]);
}

TEST_F(SheetVisibility, ASheetLeavesTheScreenWithAHiddenApplicationAndComesBackWithIt) {
  begin(sheet);
  ASSERT_TRUE([sheet isKeyWindow]);
  [NSApp hide:nil];
  EXPECT_FALSE([sheet isVisible]);
  [NSApp unhide:nil];
  EXPECT_TRUE([sheet isVisible]);
  EXPECT_GT([sheet windowNumber], 0);
}
