#import "tests/platform/sheets/SheetTest.h"

namespace {

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
