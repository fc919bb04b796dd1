#import "tests/platform/tokenfield/TokenFieldFixture.h"

using Pasting = TokenField;

TEST_F(Pasting, AListBecomesTokens) {
  setClipboard(@"a@b.c, d@e.f; g@h.i\nj@k.l\r\nm@n.o");
  focus();
  [editor() paste:nil];
  EXPECT_EQ(value(), "a@b.c,d@e.f,g@h.i,j@k.l,m@n.o");
  EXPECT_EQ(typed(), "*****");
}

TEST_F(Pasting, EmptyPiecesAreDropped) {
  setClipboard(@",a@b.c,,\n;d@e.f,");
  focus();
  [editor() paste:nil];
  EXPECT_EQ(value(), "a@b.c,d@e.f");
}

TEST_F(Pasting, ASingleAddressIsTypedText) {
  setClipboard(@"example.org");
  focus();
  type(@"a@");
  [editor() paste:nil];
  EXPECT_EQ(typed(), "a@example.org");
}

TEST_F(Pasting, FiveThousandAddressesBecomeTokensInTheirOrder) {
  NSMutableArray *const addresses = [NSMutableArray array];
  for (int i = 0; i < 5000; ++i) {
    [addresses addObject:[NSString stringWithFormat:@"person%d@example.org", i]];
  }
  setClipboard([addresses componentsJoinedByString:@"\n"]);
  focus();
  type(@"a@b.c,");
  [editor() paste:nil];
  EXPECT_EQ(tokenCount(), 5001u);
  leave();
  EXPECT_EQ(value(), "a@b.c," + text([addresses componentsJoinedByString:@","]));
}

TEST_F(Pasting, AListReplacesTheSelection) {
  setClipboard(@"x@y.z,");
  focus();
  type(@"a@b.c,d@e.f,");
  [editor() setSelectedRange:NSMakeRange(0, 1)];
  [editor() paste:nil];
  EXPECT_EQ(value(), "x@y.z,d@e.f");
}

TEST_F(Pasting, CopiedTokensAreAList) {
  focus();
  type(@"a@b.c,Anna<anna@example.org>,x");
  [editor() selectAll:nil];
  [editor() copy:nil];
  EXPECT_EQ(text(clipboard()), "a@b.c, Anna<anna@example.org>, x");
  EXPECT_EQ(typed(), "**x");
}

TEST_F(Pasting, CopiedTextIsExactlyWhatWasSelected) {
  focus();
  type(@"a@b.c,hello world ");
  [editor() setSelectedRange:NSMakeRange(6, 7)];
  [editor() copy:nil];
  EXPECT_EQ(text(clipboard()), " world ");
}

TEST_F(Pasting, CutTextIsExactlyWhatWasSelectedAndGone) {
  focus();
  type(@"hello world");
  [editor() setSelectedRange:NSMakeRange(5, 6)];
  [editor() cut:nil];
  EXPECT_EQ(text(clipboard()), " world");
  EXPECT_EQ(typed(), "hello");
}

TEST_F(Pasting, WhiteSpaceAloneCanBeCopied) {
  focus();
  type(@"hello world");
  [editor() setSelectedRange:NSMakeRange(5, 1)];
  [editor() copy:nil];
  EXPECT_EQ(text(clipboard()), " ");
}

TEST_F(Pasting, ASeparatorThatIsStillTextIsCopiedToo) {
  focus();
  type(@",x");
  ASSERT_EQ(typed(), ",x");
  [editor() selectAll:nil];
  [editor() copy:nil];
  EXPECT_EQ(text(clipboard()), ",x");
}

TEST_F(Pasting, CutTextIsTheSameWhenItIsPastedBack) {
  focus();
  type(@"hello world");
  [editor() setSelectedRange:NSMakeRange(5, 6)];
  [editor() cut:nil];
  [editor() paste:nil];
  EXPECT_EQ(typed(), "hello world");
}

TEST_F(Pasting, CutTokensAreAListAndGone) {
  focus();
  type(@"a@b.c,d@e.f,g@h.i,");
  [editor() setSelectedRange:NSMakeRange(0, 2)];
  [editor() cut:nil];
  EXPECT_EQ(text(clipboard()), "a@b.c, d@e.f");
  EXPECT_EQ(value(), "g@h.i");
}

TEST_F(Pasting, CopyingNothingLeavesTheClipboardAlone) {
  setClipboard(@"former contents");
  focus();
  [editor() copy:nil];
  EXPECT_EQ(text(clipboard()), "former contents");
}

TEST_F(Pasting, CutTokensCanBePastedBack) {
  focus();
  type(@"a@b.c,Anna<anna@example.org>,");
  [editor() selectAll:nil];
  [editor() cut:nil];
  [editor() paste:nil];
  EXPECT_EQ(value(), "a@b.c,anna@example.org");
  EXPECT_EQ(shownText(1), "Anna");
}

using Undoing = TokenField;

TEST_F(Undoing, TypingIsUndone) {
  focus();
  type(@"a@b.c,xyz");
  [[editor() undoManager] undo];
  EXPECT_EQ(typed(), "*");
}

TEST_F(Undoing, EndingATokenIsUndone) {
  focus();
  type(@"a@b.c,");
  [[editor() undoManager] undo];
  EXPECT_EQ(typed(), "a@b.c");
}

TEST_F(Undoing, ADeletedTokenComesBackAsAToken) {
  focus();
  type(@"Anna<anna@example.org>,");
  press(NSDeleteCharacter);
  press(NSDeleteCharacter);
  ASSERT_EQ(value(), "");
  [[editor() undoManager] undo];
  EXPECT_EQ(value(), "anna@example.org");
  EXPECT_EQ(typed(), "*");
}

TEST_F(Undoing, APastedListGoes) {
  setClipboard(@"a@b.c,d@e.f");
  focus();
  type(@"x@y.z,");
  [editor() paste:nil];
  [[editor() undoManager] undo];
  EXPECT_EQ(value(), "x@y.z");
}

TEST_F(Undoing, TypingBehindATokenAfterAnUndoIsPlainText) {
  focus();
  type(@"a@b.c,");
  press(NSDeleteCharacter);
  press(NSDeleteCharacter);
  [[editor() undoManager] undo];
  [editor() setSelectedRange:NSMakeRange(1, 0)];
  type(@"x");
  EXPECT_EQ(typed(), "*x");
}

TEST_F(Undoing, NothingIsLeftToUndoInAFieldThatWasLeft) {
  focus();
  type(@"a@b.c,");
  leave();
  focus();
  EXPECT_FALSE([[editor() undoManager] canUndo]);
}

TEST_F(Undoing, LeavingTheFieldKeepsWhatOtherViewsCanUndo) {
  focus();
  [[window undoManager] registerUndoWithTarget:counter selector:@selector(clicked:) object:nil];
  type(@"a@b.c,");
  leave();
  EXPECT_TRUE([[window undoManager] canUndo]);
}
