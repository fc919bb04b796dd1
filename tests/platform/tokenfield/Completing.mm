#import "tests/platform/tokenfield/TokenFieldFixture.h"

#import "platform/gnustep/tokenfield/CompletionList.h"
#import "platform/gnustep/tokenfield/CompletionListView.h"

struct Completing : TokenField {
  /// Gives the field that many people to choose from; the delegate owns the answered book.
  CountingArray *setBookOf(NSUInteger length) {
    CountingArray *const many = [[CountingArray alloc] init];
    many->length = length;
    [delegate->book release];
    delegate->book = many;
    return many;
  }
};

TEST_F(Completing, TheListOpensWithoutChangingWhatIsTyped) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  EXPECT_EQ(typed(), "an");
  EXPECT_EQ(highlighted(), "(none)");
  EXPECT_EQ([[(CompletionListView *)listRows() items] count], 2u);
  EXPECT_TRUE([window isKeyWindow]);
}

TEST_F(Completing, TheDelegateIsToldWhichTokenIsBeingTyped) {
  focus();
  type(@"a@b.c,d@e.f,an");
  ASSERT_TRUE(eventually([this] { return text([delegate->asked lastObject]) == "an"; }));
  EXPECT_EQ([[delegate->askedIndexes lastObject] intValue], 2);
}

TEST_F(Completing, TheDelegateMayHighlightAnItem) {
  delegate->selectedItem = 1;
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  EXPECT_EQ(highlighted(), "ANDY<andy@example.org>");
}

TEST_F(Completing, DownAndReturnTakeAnItem) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  press(NSDownArrowFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(highlighted(), "Anna<anna@example.org>");
  press(NSCarriageReturnCharacter);
  EXPECT_EQ(list(), nil);
  EXPECT_EQ(value(), "anna@example.org");
  EXPECT_EQ(shownText(0), "Anna");
  EXPECT_EQ(counter->clicks, 0);
}

TEST_F(Completing, ReturnWithoutAHighlightKeepsWhatIsTyped) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  press(NSCarriageReturnCharacter);
  EXPECT_EQ(value(), "an");
  EXPECT_EQ(typed(), "*");
  EXPECT_EQ(list(), nil);
}

TEST_F(Completing, TabTakesTheHighlightedItemAndMovesOn) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  press(NSDownArrowFunctionKey, NSFunctionKeyMask);
  press(NSTabCharacter);
  EXPECT_EQ(value(), "anna@example.org");
  EXPECT_NE([next currentEditor], nil);
}

TEST_F(Completing, UpGoesBack) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  press(NSDownArrowFunctionKey, NSFunctionKeyMask);
  press(NSDownArrowFunctionKey, NSFunctionKeyMask);
  press(NSUpArrowFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(highlighted(), "Anna<anna@example.org>");
}

TEST_F(Completing, EscapeClosesTheListAndKeepsTheText) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  press(0x1B);
  EXPECT_EQ(list(), nil);
  EXPECT_EQ(typed(), "an");
}

TEST_F(Completing, EscapeDoesNotReachACancelButtonWhileTheListIsOpen) {
  [button setKeyEquivalent:@"\x1B"];
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  press(0x1B);
  EXPECT_EQ(counter->clicks, 0);
}

TEST_F(Completing, AClickTakesAnItem) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  NSView *const rows = listRows();
  const NSPoint second = [rows convertPoint:NSMakePoint(20, NSHeight([rows bounds]) * 3 / 4)
                                     toView:nil];
  clickInWindow(list(), second);
  EXPECT_EQ(value(), "andy@example.org");
  EXPECT_EQ(list(), nil);
  EXPECT_NE(editor(), nil);
}

TEST_F(Completing, TheMouseHighlightsTheRowBelowIt) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  NSView *const rows = listRows();
  const NSPoint second = [rows convertPoint:NSMakePoint(20, NSHeight([rows bounds]) * 3 / 4)
                                     toView:nil];
  [rows mouseMoved:[NSEvent mouseEventWithType:NSMouseMoved
                                      location:second
                                 modifierFlags:0
                                     timestamp:0
                                  windowNumber:[list() windowNumber]
                                       context:nil
                                   eventNumber:0
                                    clickCount:0
                                      pressure:0]];
  EXPECT_EQ(highlighted(), "ANDY<andy@example.org>");
}

TEST_F(Completing, NoEntriesCloseTheList) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  type(@"x");
  EXPECT_TRUE(eventually([this] { return list() == nil; }));
}

TEST_F(Completing, FewerEntriesMakeTheListLower) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  const CGFloat before = NSHeight([list() frame]);
  type(@"n");
  EXPECT_TRUE(eventually([&] { return NSHeight([list() frame]) < before; }));
}

TEST_F(Completing, EndingATokenClosesTheList) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  type(@",");
  EXPECT_EQ(list(), nil);
}

TEST_F(Completing, LosingTheFocusClosesTheList) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  leave();
  EXPECT_EQ(list(), nil);
}

TEST_F(Completing, MovingTheWindowClosesTheList) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  [window setFrameOrigin:NSMakePoint(100, 350)];
  EXPECT_TRUE(eventually([this] { return list() == nil; }));
}

TEST_F(Completing, ClosingTheWindowClosesTheList) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  [window close];
  EXPECT_EQ(list(), nil);
}

TEST_F(Completing, HidingTheApplicationClosesTheList) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  [NSApp hide:nil];
  EXPECT_EQ(list(), nil);
  [NSApp unhideWithoutActivation];
}

TEST_F(Completing, TheListIsBelowTheFieldWithItsWidth) {
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  const NSRect inWindow = [field convertRect:[field bounds] toView:nil];
  const NSPoint corner = [window convertBaseToScreen:inWindow.origin];
  EXPECT_LE(NSMaxY([list() frame]), corner.y);
  EXPECT_EQ(NSMinX([list() frame]), corner.x);
  EXPECT_EQ(NSWidth([list() frame]), NSWidth([field frame]));
}

TEST_F(Completing, WithoutRoomBelowTheListIsAboveTheField) {
  [window setFrameOrigin:NSMakePoint(100, 0)];
  [field setFrameOrigin:NSMakePoint(20, 4)];
  settle();
  focus();
  type(@"an");
  ASSERT_TRUE(listOpens());
  const NSRect inWindow = [field convertRect:[field bounds] toView:nil];
  const NSPoint corner = [window convertBaseToScreen:inWindow.origin];
  EXPECT_GE(NSMinY([list() frame]), corner.y + NSHeight(inWindow));
}

TEST_F(Completing, QueuedKeysAreAskedAboutOnce) {
  focus();
  for (const unichar key : {u'a', u'n', u'n', u'a'}) queueKey(key);
  ASSERT_TRUE(listOpens());
  EXPECT_EQ([delegate->asked count], 1u);
  EXPECT_EQ(text([delegate->asked lastObject]), "anna");
}

TEST_F(Completing, TheDelayIsWaitedFor) {
  [field setCompletionDelay:0.2];
  focus();
  NSDate *const start = [NSDate date];
  type(@"an");
  ASSERT_TRUE(listOpens());
  EXPECT_GE(-[start timeIntervalSinceNow], 0.2);
}

TEST_F(Completing, AHundredThousandEntriesAreReadOnlyWhereTheyAreSeen) {
  CountingArray *const many = setBookOf(100000);
  focus();
  type(@"p");
  ASSERT_TRUE(listOpens());
  [list() display];
  EXPECT_GT(many->reads, 0u);
  EXPECT_LE(many->reads, 4 * [CompletionList visibleRows]);
  const CGFloat row = [CompletionListView rowHeightForFont:[field font]];
  EXPECT_LE(NSHeight([list() frame]), row * [CompletionList visibleRows] + 4);
}

TEST_F(Completing, PageKeysMoveByPagesAndScroll) {
  setBookOf(1000);
  focus();
  type(@"p");
  ASSERT_TRUE(listOpens());
  press(NSPageDownFunctionKey, NSFunctionKeyMask);
  press(NSPageDownFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(highlighted(), "Person 17<p17@example.org>");
  const CGFloat row = [CompletionListView rowHeightForFont:[field font]];
  EXPECT_TRUE(NSContainsRect([listRows() visibleRect], NSMakeRect(1, 17 * row, 10, row)));
  press(NSPageUpFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(highlighted(), "Person 8<p8@example.org>");
}

TEST_F(Completing, HomeAndEndGoToTheEndsOfTheListAndScroll) {
  setBookOf(1000);
  focus();
  type(@"p");
  ASSERT_TRUE(listOpens());
  // Without a highlighted item they move the caret.
  press(NSEndFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(highlighted(), "(none)");
  press(NSDownArrowFunctionKey, NSFunctionKeyMask);
  press(NSEndFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(highlighted(), "Person 999<p999@example.org>");
  const CGFloat row = [CompletionListView rowHeightForFont:[field font]];
  EXPECT_TRUE(NSContainsRect([listRows() visibleRect], NSMakeRect(1, 999 * row, 10, row)));
  press(NSHomeFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(highlighted(), "Person 0<p0@example.org>");
}

TEST_F(Completing, ArrowsEditTheTextWhileNoListIsOpen) {
  [delegate->book release];
  delegate->book = nil;
  focus();
  type(@"ab");
  press(NSLeftArrowFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(selection(), "1+0");
}

TEST_F(Completing, ATokenFromTheMiddleOfTheFieldStaysThere) {
  focus();
  type(@"a@b.c,e@f.g,");
  [editor() setSelectedRange:NSMakeRange(1, 0)];
  type(@"an");
  ASSERT_TRUE(listOpens());
  press(NSDownArrowFunctionKey, NSFunctionKeyMask);
  press(NSCarriageReturnCharacter);
  EXPECT_EQ(value(), "a@b.c,anna@example.org,e@f.g");
}

TEST_F(Completing, AWindowThatGoesWhileTheListIsAskedForIsNoHarm) {
  [field setCompletionDelay:0.05];
  focus();
  type(@"an");
  [window close];
  [field removeFromSuperview];
  EXPECT_TRUE(eventually([this] { return list() == nil; }));
}
