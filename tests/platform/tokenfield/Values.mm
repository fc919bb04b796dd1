#import "tests/platform/tokenfield/TokenFieldFixture.h"

using Values = TokenField;

namespace {

NSArray *pair(NSString *first, NSString *second) {
  return [NSArray arrayWithObjects:first, second, nil];
}

}  // namespace

TEST_F(Values, AnEmptyFieldIsAnEmptyString) {
  EXPECT_EQ(value(), "");
  EXPECT_EQ([[field objectValue] count], 0u);
}

TEST_F(Values, AStringIsCutIntoTokens) {
  [field setStringValue:@"a@b.c; d@e.f,g@h.i"];
  EXPECT_EQ(value(), "a@b.c,d@e.f,g@h.i");
  focus();
  EXPECT_EQ(typed(), "***");
}

TEST_F(Values, ATrailingSeparatorSurvives) {
  [field setStringValue:@"a@b.c,"];
  EXPECT_EQ(value(), "a@b.c,");
}

TEST_F(Values, DoubledSeparatorsSurvive) {
  [field setStringValue:@"a@b.c,,d@e.f"];
  EXPECT_EQ(value(), "a@b.c,,d@e.f");
}

TEST_F(Values, ALeadingSeparatorSurvives) {
  [field setStringValue:@",a@b.c"];
  EXPECT_EQ(value(), ",a@b.c");
}

TEST_F(Values, ALoneSeparatorSurvives) {
  [field setStringValue:@","];
  EXPECT_EQ(value(), ",");
}

TEST_F(Values, EmptyPiecesSurviveEditing) {
  [field setStringValue:@"a@b.c,,d@e.f"];
  focus();
  leave();
  EXPECT_EQ(value(), "a@b.c,,d@e.f");
}

TEST_F(Values, AnEmptyStringEmptiesTheField) {
  [field setStringValue:@"a@b.c,d@e.f"];
  [field setStringValue:@""];
  EXPECT_EQ(value(), "");
}

TEST_F(Values, AnEmptyTitleEmptiesTheField) {
  [field setStringValue:@"a@b.c"];
  [(id)field setTitle:@""];
  EXPECT_EQ(value(), "");
}

TEST_F(Values, AnEmptyTitleOfTheCellEmptiesTheField) {
  [field setStringValue:@"a@b.c"];
  [[field cell] setTitle:@""];
  EXPECT_EQ(value(), "");
}

TEST_F(Values, EmptyingWhileTypingRemovesTheRestAsWell) {
  focus();
  type(@"a@b.c,d@e");
  [field setStringValue:@""];
  EXPECT_EQ(value(), "");
  leave();
  EXPECT_EQ(value(), "");
}

TEST_F(Values, TheObjectValueIsTheRepresentedObjectsAndTheRest) {
  focus();
  type(@"Anna<anna@example.org>,d@e");
  EXPECT_EQ(text([field objectValue]), text(pair(@"anna@example.org", @"d@e")));
}

TEST_F(Values, AnArrayBecomesOneTokenForEachObject) {
  [field setObjectValue:pair(@"a,b", @"c")];
  focus();
  EXPECT_EQ(typed(), "**");
  EXPECT_EQ(shownText(0), "a,b");
}

TEST_F(Values, NoObjectEmptiesTheField) {
  [field setObjectValue:pair(@"a", @"c")];
  [field setObjectValue:nil];
  EXPECT_EQ(value(), "");
}

TEST_F(Values, ANumberIsATokenOfItsDescription) {
  [field setIntValue:42];
  EXPECT_EQ(value(), "42");
}

TEST_F(Values, AnotherTokenizingCharacterLeavesCommasInTheText) {
  [field setTokenizingCharacterSet:[NSCharacterSet characterSetWithCharactersInString:@"|"]];
  [field setStringValue:@"a,b|c||d"];
  focus();
  EXPECT_EQ(typed(), "**|*");
}

TEST_F(Values, TheCellAnswersTheSame) {
  [field setStringValue:@"a,b"];
  EXPECT_EQ(text([[field cell] stringValue]), "a,b");
  EXPECT_EQ(text([[field cell] title]), "a,b");
}

TEST_F(Values, ACopyOfTheCellHasTokensOfItsOwn) {
  [field setStringValue:@"a,b"];
  NSTokenFieldCell *const copy = [[[field cell] copy] autorelease];
  [field setStringValue:@""];
  EXPECT_EQ(text([copy stringValue]), "a,b");
  EXPECT_TRUE([[copy tokenizingCharacterSet] characterIsMember:';']);
}

TEST_F(Values, WithoutAFieldTheCellNeedsNoDelegate) {
  NSTokenFieldCell *const cell = [[[NSTokenFieldCell alloc] initTextCell:@""] autorelease];
  [cell setStringValue:@"a,b"];
  EXPECT_EQ([[cell objectValue] count], 2u);
}

TEST_F(Values, TheDefaultsAreThePlatforms) {
  NSTokenField *const plain =
      [[[NSTokenField alloc] initWithFrame:NSMakeRect(0, 0, 100, 24)] autorelease];
  EXPECT_EQ([plain tokenStyle], NSDefaultTokenStyle);
  EXPECT_EQ([plain completionDelay], [NSTokenField defaultCompletionDelay]);
  EXPECT_TRUE([[NSTokenField defaultTokenizingCharacterSet] characterIsMember:',']);
  EXPECT_TRUE([[plain tokenizingCharacterSet] characterIsMember:',']);
  EXPECT_FALSE([[plain tokenizingCharacterSet] characterIsMember:';']);
}

TEST_F(Values, NoTokenizingSetMeansTheDefaultOne) {
  [field setTokenizingCharacterSet:nil];
  EXPECT_TRUE([[field tokenizingCharacterSet] characterIsMember:',']);
}

TEST_F(Values, SettingsAreKept) {
  [field setCompletionDelay:0.5];
  [field setTokenStyle:NSPlainTextTokenStyle];
  EXPECT_EQ([field completionDelay], 0.5);
  EXPECT_EQ([field tokenStyle], NSPlainTextTokenStyle);
}

TEST_F(Values, AssistiveProgramsReadTheStringValue) {
  focus();
  type(@"a@b.c,d");
  EXPECT_EQ(text([(id)field accessibilityValue]), "a@b.c,d");
  EXPECT_EQ(text([field performSelector:@selector(accessibilityAttributeValue:)
                             withObject:NSAccessibilityValueAttribute]),
            "a@b.c,d");
}
