#import "tests/platform/tokenfield/TokenFieldFixture.h"

using Typing = TokenField;

TEST_F(Typing, ACommaEndsAToken) {
  focus();
  type(@"a@b.c,");
  EXPECT_EQ(typed(), "*");
  EXPECT_EQ(value(), "a@b.c");
}

TEST_F(Typing, ASemicolonEndsAToken) {
  focus();
  type(@"a@b.c;");
  EXPECT_EQ(typed(), "*");
}

TEST_F(Typing, ReturnEndsATokenAndLeavesTheButtonAlone) {
  focus();
  type(@"a@b.c\n");
  EXPECT_EQ(typed(), "*");
  EXPECT_EQ(counter->clicks, 0);
  EXPECT_NE(editor(), nil);
}

TEST_F(Typing, ReturnPressesTheDefaultButtonWhenNothingIsBeingTyped) {
  focus();
  type(@"a@b.c\n\n");
  EXPECT_EQ(counter->clicks, 1);
  EXPECT_EQ(value(), "a@b.c");
}

TEST_F(Typing, ReturnInAnEmptyFieldPressesTheDefaultButton) {
  focus();
  type(@"\n");
  EXPECT_EQ(counter->clicks, 1);
}

TEST_F(Typing, TabEndsATokenAndMovesOn) {
  focus();
  type(@"a@b.c\t");
  EXPECT_EQ(value(), "a@b.c");
  EXPECT_EQ([[field objectValue] count], 1u);
  EXPECT_NE([next currentEditor], nil);
}

TEST_F(Typing, SpacesAroundATokenAreDropped) {
  focus();
  type(@"a@b.c, d@e.f ,");
  EXPECT_EQ(value(), "a@b.c,d@e.f");
}

TEST_F(Typing, AHalfTypedRestCounts) {
  focus();
  type(@"a@b.c,d@e");
  EXPECT_EQ(typed(), "*d@e");
  EXPECT_EQ(value(), "a@b.c,d@e");
}

TEST_F(Typing, ASeparatorWithNothingBeforeItStaysAndCountsAsAnEmptyPiece) {
  focus();
  type(@"a@b.c,,d@e.f");
  EXPECT_EQ(typed(), "*,d@e.f");
  EXPECT_EQ(value(), "a@b.c,,d@e.f");
}

TEST_F(Typing, TextBetweenTokensBecomesATokenThere) {
  focus();
  type(@"a@b.c,e@f.g,");
  [editor() setSelectedRange:NSMakeRange(1, 0)];
  type(@"c@d.e,");
  EXPECT_EQ(value(), "a@b.c,c@d.e,e@f.g");
}

TEST_F(Typing, TheDelegateHearsOfEachChange) {
  focus();
  type(@"ab,");
  EXPECT_EQ(delegate->changes, 3u);
}

TEST_F(Typing, TheDelegateDecidesWhatATokenStandsFor) {
  focus();
  type(@"Anna<anna@example.org>,");
  EXPECT_EQ(value(), "anna@example.org");
  EXPECT_EQ(shownText(0), "Anna");
}

TEST_F(Typing, AnEmptyRepresentedObjectIsAnEmptyPiece) {
  focus();
  type(@"a@b.c,<>,");
  EXPECT_EQ(value(), "a@b.c,");
  EXPECT_EQ(shownText(1), "<>");
}

TEST_F(Typing, ATokenThatTheDelegateRefusesIsNotAdded) {
  delegate->refused = [[NSSet alloc] initWithObjects:@"bad@b.c", nil];
  focus();
  type(@"bad@b.c,good@b.c,");
  EXPECT_EQ(value(), "good@b.c");
}

TEST_F(Typing, ATokensCharacterCannotBeTyped) {
  focus();
  press(NSAttachmentCharacter);
  type(@"a");
  EXPECT_EQ(typed(), "a");
}

TEST_F(Typing, WhatIsTypedAfterATokenIsPlainText) {
  focus();
  type(@"a@b.c,x");
  EXPECT_EQ(tokenCount(), 1u);
  EXPECT_EQ([[editor() textStorage] attribute:NSAttachmentAttributeName
                                      atIndex:1
                               effectiveRange:NULL],
            nil);
}

TEST_F(Typing, LosingTheFocusMakesATokenOfTheRest) {
  focus();
  type(@"a@b.c,d@e.f");
  leave();
  EXPECT_EQ(value(), "a@b.c,d@e.f");
  focus();
  EXPECT_EQ(typed(), "**");
}

TEST_F(Typing, RedrawingAndValidatingKeepTheRest) {
  focus();
  type(@"a@b.c,d@e");
  [field setNeedsDisplay:YES];
  [window display];
  [field validateEditing];
  type(@".f");
  EXPECT_EQ(typed(), "*d@e.f");
}

TEST_F(Typing, SwitchingToAnotherWindowAndBackKeepsTheRest) {
  focus();
  type(@"a@b.c,d@e");
  NSWindow *const other = [[[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 100, 100)
                                                       styleMask:NSTitledWindowMask
                                                         backing:NSBackingStoreBuffered
                                                           defer:NO] autorelease];
  [other setReleasedWhenClosed:NO];
  [other makeKeyAndOrderFront:nil];
  ASSERT_TRUE(eventually([&] { return [other isKeyWindow] != NO; }));
  EXPECT_EQ(value(), "a@b.c,d@e");
  [window makeKeyAndOrderFront:nil];
  [other close];
  ASSERT_TRUE(eventually([this] { return [window isKeyWindow] != NO; }));
  type(@".f");
  EXPECT_EQ(typed(), "*d@e.f");
}

TEST_F(Typing, SwitchingTabsKeepsTheRest) {
  NSTabView *const tabs =
      [[[NSTabView alloc] initWithFrame:NSMakeRect(0, 0, 480, 200)] autorelease];
  for (NSString *name in [NSArray arrayWithObjects:@"1", @"2", nil]) {
    NSTabViewItem *const item = [[[NSTabViewItem alloc] initWithIdentifier:name] autorelease];
    [item setView:[[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 400, 150)] autorelease]];
    [tabs addTabViewItem:item];
  }
  [[window contentView] addSubview:tabs];
  [field removeFromSuperview];
  [[[tabs tabViewItemAtIndex:0] view] addSubview:field];
  focus();
  type(@"a@b.c,d@e.f");
  [tabs selectTabViewItemAtIndex:1];
  settle();
  EXPECT_EQ(value(), "a@b.c,d@e.f");
  [tabs selectTabViewItemAtIndex:0];
  focus();
  EXPECT_EQ(typed(), "**");
}

TEST_F(Typing, DisablingTheFieldKeepsTheRest) {
  focus();
  type(@"a@b.c,d@e.f");
  [field setEnabled:NO];
  EXPECT_EQ(value(), "a@b.c,d@e.f");
  EXPECT_EQ([field currentEditor], nil);
}

TEST_F(Typing, ADisabledFieldTakesNoFocus) {
  [field setEnabled:NO];
  click(NSMakePoint(10, 10));
  EXPECT_EQ([field currentEditor], nil);
}

TEST_F(Typing, ReturnSendsTheFieldsActionWhereItHasOne) {
  [field setTarget:counter];
  [field setAction:@selector(clicked:)];
  [window setDefaultButtonCell:nil];
  [button setKeyEquivalent:@""];
  focus();
  type(@"a\n");
  EXPECT_EQ(counter->clicks, 0);
  type(@"\n");
  EXPECT_EQ(counter->clicks, 1);
}

TEST_F(Typing, AFieldThatGoesWhileItIsEditedLeavesNothingBehind) {
  for (int i = 0; i < 20; ++i) {
    @autoreleasepool {
      NSTokenField *const gone = [[NSTokenField alloc] initWithFrame:NSMakeRect(20, 150, 200, 24)];
      [[window contentView] addSubview:gone];
      [gone setStringValue:@"a@b.c"];
      [window makeFirstResponder:gone];
      [static_cast<NSTextView *>([gone currentEditor]) insertText:@"d@e"];
      [gone removeFromSuperview];
      EXPECT_NE([window firstResponder], gone);
      [gone release];
    }
  }
  focus();
  type(@"a@b.c,");
  EXPECT_EQ(value(), "a@b.c");
}

TEST_F(Typing, AFieldThatGoesTakesItsEditorAndItsTokensWithIt) {
  int alive = 0;
  @autoreleasepool {
    NSTokenField *const gone = [[NSTokenField alloc] initWithFrame:NSMakeRect(20, 150, 200, 24)];
    [[window contentView] addSubview:gone];
    [gone setObjectValue:[NSArray arrayWithObject:[Witness witnessOf:&alive]]];
    [window makeFirstResponder:gone];
    [static_cast<NSTextView *>([gone currentEditor]) insertText:@"d@e,"];
    EXPECT_EQ(alive, 1);
    [gone removeFromSuperview];
    [gone release];
  }
  settle();
  EXPECT_EQ(alive, 0);
}

TEST_F(Typing, AThousandTokensAreNoneTooMany) {
  NSMutableArray *const many = [NSMutableArray array];
  for (int i = 0; i < 1000; ++i) [many addObject:[NSString stringWithFormat:@"p%d@x.org", i]];
  setClipboard([many componentsJoinedByString:@"\n"]);
  focus();
  [editor() paste:nil];
  type(@"last");
  [many addObject:@"last"];
  EXPECT_EQ(value(), text([many componentsJoinedByString:@","]));
}
