#import "tests/platform/tokenfield/TokenFieldFixture.h"

using Selecting = TokenField;

TEST_F(Selecting, BackspaceFirstSelectsTheLastTokenThenDeletesIt) {
  focus();
  type(@"a@b.c,d@e.f,");
  press(NSDeleteCharacter);
  EXPECT_EQ(selection(), "1+1");
  EXPECT_EQ(value(), "a@b.c,d@e.f");
  press(NSDeleteCharacter);
  EXPECT_EQ(value(), "a@b.c");
}

TEST_F(Selecting, BackspaceDeletesTypedTextFirst) {
  focus();
  type(@"a@b.c,x");
  press(NSDeleteCharacter);
  EXPECT_EQ(typed(), "*");
  EXPECT_EQ(selection(), "1+0");
}

TEST_F(Selecting, ForwardDeleteFirstSelectsTheNextTokenThenDeletesIt) {
  focus();
  type(@"a@b.c,d@e.f,");
  [editor() setSelectedRange:NSMakeRange(0, 0)];
  press(NSDeleteFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(selection(), "0+1");
  press(NSDeleteFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(value(), "d@e.f");
}

TEST_F(Selecting, TheLeftArrowSelectsATokenThenStepsOverIt) {
  focus();
  type(@"a@b.c,");
  press(NSLeftArrowFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(selection(), "0+1");
  press(NSLeftArrowFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(selection(), "0+0");
}

TEST_F(Selecting, TheRightArrowSelectsATokenThenStepsOverIt) {
  focus();
  type(@"a@b.c,");
  [editor() setSelectedRange:NSMakeRange(0, 0)];
  press(NSRightArrowFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(selection(), "0+1");
  press(NSRightArrowFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(selection(), "1+0");
}

TEST_F(Selecting, ShiftAndAnArrowExtendTheSelection) {
  focus();
  type(@"a@b.c,d@e.f,");
  press(NSLeftArrowFunctionKey, NSFunctionKeyMask | NSShiftKeyMask);
  press(NSLeftArrowFunctionKey, NSFunctionKeyMask | NSShiftKeyMask);
  EXPECT_EQ(selection(), "0+2");
}

TEST_F(Selecting, AClickSelectsAToken) {
  focus();
  type(@"a@b.c,d@e.f,g@h.i,");
  click(middleOfToken(1));
  EXPECT_EQ(selection(), "1+1");
}

TEST_F(Selecting, AClickIntoAFieldWithoutTheFocusSelectsTheTokenThere) {
  focus();
  type(@"a@b.c,d@e.f,g@h.i,");
  const NSPoint place = middleOfToken(1);
  leave();
  [window display];
  click(place);
  EXPECT_EQ(selection(), "1+1");
}

TEST_F(Selecting, AShiftClickExtendsTheSelection) {
  focus();
  type(@"a@b.c,d@e.f,g@h.i,");
  click(middleOfToken(0));
  click(middleOfToken(2), 1, NSShiftKeyMask);
  EXPECT_EQ(selection(), "0+3");
}

TEST_F(Selecting, DraggingSelectsTheTokensOnTheWay) {
  focus();
  type(@"a@b.c,d@e.f,g@h.i,");
  drag(middleOfToken(0), middleOfToken(1));
  EXPECT_EQ(selection(), "0+2");
}

TEST_F(Selecting, DeleteRemovesTheSelectedTokens) {
  focus();
  type(@"a@b.c,d@e.f,g@h.i,");
  click(middleOfToken(0));
  click(middleOfToken(1), 1, NSShiftKeyMask);
  press(NSDeleteCharacter);
  EXPECT_EQ(value(), "g@h.i");
}

TEST_F(Selecting, TypingReplacesTheSelectedTokens) {
  focus();
  type(@"a@b.c,d@e.f,");
  click(middleOfToken(1));
  type(@"x@y.z,");
  EXPECT_EQ(value(), "a@b.c,x@y.z");
}

TEST_F(Selecting, ADoubleClickMakesATokenTextAgain) {
  focus();
  type(@"a@b.c,Anna<anna@example.org>,");
  click(middleOfToken(1), 2);
  EXPECT_EQ(typed(), "*Anna<anna@example.org>");
  EXPECT_EQ(selection(), "1+22");
}

TEST_F(Selecting, SelectAllTakesTokensAndText) {
  focus();
  type(@"a@b.c,xyz");
  [editor() selectAll:nil];
  EXPECT_EQ(selection(), "0+4");
}

TEST_F(Selecting, EnteringByKeyboardSelectsEverything) {
  [field setStringValue:@"a@b.c,d@e.f"];
  [window makeFirstResponder:next];
  press(NSTabCharacter);
  ASSERT_NE(editor(), nil);
  EXPECT_EQ(selection(), "0+2");
}

TEST_F(Selecting, AClickBehindTheTokensPutsTheCaretThere) {
  focus();
  type(@"a@b.c,");
  click(NSMakePoint(400, 12));
  EXPECT_EQ(selection(), "1+0");
}

TEST_F(Selecting, AClickBehindTypedTextPutsTheCaretThere) {
  focus();
  type(@"a@b.c,xyz");
  [editor() setSelectedRange:NSMakeRange(0, 0)];
  click(NSMakePoint(400, 12));
  EXPECT_EQ(selection(), "4+0");
}

TEST_F(Selecting, DraggingFromBehindTheTokensSelectsThem) {
  focus();
  type(@"a@b.c,d@e.f,");
  drag(NSMakePoint(400, 12), middleOfToken(1));
  EXPECT_EQ(selection(), "1+1");
}
