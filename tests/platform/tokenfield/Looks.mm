#import "tests/platform/tokenfield/TokenFieldFixture.h"

#include "platform/gnustep/theme/ThemeColors.h"
#import "platform/gnustep/tokenfield/FieldToken.h"
#import "platform/gnustep/tokenfield/TokenFieldCell.h"
#import "platform/gnustep/tokenfield/TokenLayout.h"
#import "platform/gnustep/tokenfield/TokenPill.h"

namespace {

/// Places and colours on the screen.
class Looks : public TokenField {
 protected:
  NSString *addresses(int count) {
    NSMutableArray *const all = [NSMutableArray array];
    for (int i = 0; i < count; ++i) {
      [all addObject:[NSString stringWithFormat:@"person%d@example.org", i]];
    }
    return [all componentsJoinedByString:@","];
  }

  /// Where the nth character's token is in the editor.
  NSRect placeOfToken(NSUInteger index) { return tokenRect([editor() layoutManager], index); }

  bool caretIsInSight() {
    const NSRect caret = [[editor() layoutManager]
        insertionPointRectForCharacterIndex:[editor() selectedRange].location
                            inTextContainer:[editor() textContainer]];
    return NSIntersectsRect(NSInsetRect(caret, -1, 0), [editor() visibleRect]);
  }

  /// The colour at a point of the field, as drawn.
  NSColor *colorAt(NSPoint point) {
    [window display];
    [field lockFocus];
    const NSRect bounds = [field bounds];
    NSBitmapImageRep *const picture =
        [[[NSBitmapImageRep alloc] initWithFocusedViewRect:bounds] autorelease];
    [field unlockFocus];
    return [[picture colorAtX:static_cast<NSInteger>(point.x) y:static_cast<NSInteger>(point.y)]
        colorUsingColorSpaceName:NSDeviceRGBColorSpace];
  }

  unsigned rgbAt(NSPoint point) {
    NSColor *const seen = colorAt(point);
    const auto part = [](CGFloat value) { return static_cast<unsigned>(lround(value * 255)); };
    return part([seen redComponent]) << 16 | part([seen greenComponent]) << 8 |
           part([seen blueComponent]);
  }

  /// Inside the first token's background, left of its text.
  NSPoint edgeOfFirstToken() {
    const NSRect titleRect = [[field cell] titleRectForBounds:[field bounds]];
    return NSMakePoint(NSMinX(titleRect) + 7, NSMidY(titleRect) + 1);
  }

  std::vector<std::string> toolTips() {
    [window display];
    std::vector<std::string> tips;
    for (NSNumber *tag in
         [[field->toolTips allKeys] sortedArrayUsingSelector:@selector(compare:)]) {
      tips.push_back(text([field->toolTips objectForKey:tag]));
    }
    return tips;
  }
};

}  // namespace

TEST_F(Looks, ATokenIsDrawnAsALightBluePill) {
  [field setStringValue:@"a@b.c"];
  EXPECT_EQ(rgbAt(edgeOfFirstToken()), theme::kToken);
}

TEST_F(Looks, ASelectedTokenIsDrawnInTheAccentColour) {
  focus();
  type(@"a@b.c,");
  press(NSLeftArrowFunctionKey, NSFunctionKeyMask);
  EXPECT_EQ(rgbAt(edgeOfFirstToken()), theme::kAccent);
}

TEST_F(Looks, ATokenOfADisabledFieldIsGrey) {
  [field setStringValue:@"a@b.c"];
  [field setEnabled:NO];
  EXPECT_EQ(rgbAt(edgeOfFirstToken()), theme::kTokenDisabled);
}

TEST_F(Looks, TokensDoNotMoveWhenEditingBegins) {
  [field setStringValue:@"a@b.c,d@e.f"];
  const unsigned before = rgbAt(edgeOfFirstToken());
  focus();
  [editor() setSelectedRange:NSMakeRange(2, 0)];
  EXPECT_EQ(rgbAt(edgeOfFirstToken()), before);
}

TEST_F(Looks, ALowFieldIsOneLineThatScrollsWithTheCaret) {
  focus();
  [editor() insertText:[addresses(12) stringByAppendingString:@","]];
  EXPECT_EQ(NSMinY(placeOfToken(0)), NSMinY(placeOfToken(11)));
  EXPECT_TRUE(caretIsInSight());
  [editor() moveToBeginningOfDocument:nil];
  EXPECT_TRUE(caretIsInSight());
}

TEST_F(Looks, AHigherFieldWrapsBetweenTokensAndScrollsWithTheCaret) {
  resizeField(NSMakeRect(20, 110, 440, 44));
  focus();
  [editor() insertText:[addresses(12) stringByAppendingString:@","]];
  EXPECT_LT(NSMinY(placeOfToken(0)), NSMinY(placeOfToken(11)));
  for (NSUInteger i = 0; i < 12; ++i) {
    EXPECT_LE(NSMaxX(placeOfToken(i)), NSWidth([editor() bounds]));
  }
  EXPECT_TRUE(caretIsInSight());
  [editor() moveToBeginningOfDocument:nil];
  EXPECT_TRUE(caretIsInSight());
}

TEST_F(Looks, WhatIsTypedAtTheEndOfALineMovesWhollyToTheNext) {
  resizeField(NSMakeRect(20, 110, 440, 44));
  focus();
  [editor() insertText:@"person1@example.org,"];
  resizeField(NSMakeRect(20, 110, NSWidth(placeOfToken(0)) + 60, 44));
  [editor() insertText:@"person2@example"];
  const NSRect first =
      [[editor() layoutManager] insertionPointRectForCharacterIndex:1
                                                    inTextContainer:[editor() textContainer]];
  const NSRect last =
      [[editor() layoutManager] insertionPointRectForCharacterIndex:[[editor() string] length]
                                                    inTextContainer:[editor() textContainer]];
  EXPECT_EQ(NSMinY(first), NSMinY(last));
  EXPECT_GT(NSMinY(last), NSMinY(placeOfToken(0)));
}

TEST_F(Looks, ALongNameIsCutInTheMiddle) {
  focus();
  NSString *const name = [@"" stringByPaddingToLength:300
                                           withString:@"abcdefghij"
                                      startingAtIndex:0];
  [editor() insertText:[name stringByAppendingString:@"@example.org,"]];
  [window display];
  EXPECT_LE(NSWidth(placeOfToken(0)), NSWidth([field bounds]));
  EXPECT_NE(shownText(0).find("\u2026"), std::string::npos);
  EXPECT_EQ(shownText(0).substr(0, 3), "abc");
  EXPECT_EQ(shownText(0).substr(shownText(0).size() - 3), "org");
}

TEST_F(Looks, ANarrowerFieldCutsEarlier) {
  focus();
  [editor() insertText:@"a.rather.long.name.of.somebody@example.org,"];
  [window display];
  ASSERT_EQ(shownText(0).find("\u2026"), std::string::npos);
  resizeField(NSMakeRect(20, 120, 120, 24));
  EXPECT_NE(shownText(0).find("\u2026"), std::string::npos);
  EXPECT_LE(NSWidth(placeOfToken(0)), 120);
}

TEST_F(Looks, TheWheelMovesALineThatIsTooLong) {
  focus();
  [editor() insertText:[addresses(12) stringByAppendingString:@","]];
  [editor() moveToBeginningOfDocument:nil];
  const CGFloat before = NSMinX([editor() visibleRect]);
  NSEvent *const down = [NSEvent mouseEventWithType:NSScrollWheel
                                           location:NSZeroPoint
                                      modifierFlags:0
                                          timestamp:0
                                       windowNumber:[window windowNumber]
                                            context:nil
                                        eventNumber:0
                                         clickCount:0
                                           pressure:0
                                       buttonNumber:0
                                             deltaX:0
                                             deltaY:-3
                                             deltaZ:0];
  [editor() scrollWheel:down];
  EXPECT_GT(NSMinX([editor() visibleRect]), before);
}

TEST_F(Looks, TheWheelMovesALongLineThatNobodyEdits) {
  [field setStringValue:addresses(12)];
  [[field cell] scrollBy:60 inBounds:[field bounds]];
  EXPECT_EQ([[field cell] scrolled].x, 60);
  [[field cell] scrollBy:1e6 inBounds:[field bounds]];
  EXPECT_GT([[field cell] scrolled].x, 500);
  EXPECT_LT([[field cell] scrolled].x, 3000);
  [[field cell] scrollBy:-1e6 inBounds:[field bounds]];
  EXPECT_EQ([[field cell] scrolled].x, 0);
}

TEST_F(Looks, AScrolledFieldKeepsItsPlaceWhenATokenIsClicked) {
  [field setStringValue:addresses(12)];
  [[field cell] scrollBy:300 inBounds:[field bounds]];
  [window display];
  click(NSMakePoint(40, 12));
  EXPECT_EQ(NSMinX([editor() visibleRect]), 300);
  EXPECT_EQ([editor() selectedRange].length, 1u);
}

TEST_F(Looks, EachTokenInSightHasAToolTipWithItsAddress) {
  [field setStringValue:@"Anna<anna@example.org>,dan@example.org"];
  EXPECT_EQ(toolTips(), (std::vector<std::string>{"anna@example.org", "dan@example.org"}));
}

TEST_F(Looks, ToolTipsGoWithTheirTokens) {
  [field setStringValue:@"a@b.c,d@e.f"];
  ASSERT_EQ(toolTips().size(), 2u);
  [field setStringValue:@"a@b.c"];
  EXPECT_EQ(toolTips(), std::vector<std::string>{"a@b.c"});
}

TEST_F(Looks, WhatIsBeingTypedGetsItsToolTipAsSoonAsItIsAToken) {
  focus();
  type(@"a@b.c,d@e.f,x");
  EXPECT_EQ(toolTips(), (std::vector<std::string>{"a@b.c", "d@e.f"}));
}

TEST_F(Looks, DrawingTheEditorAgainKeepsTheToolTips) {
  focus();
  type(@"a@b.c,");
  [window display];
  [editor() display];
  EXPECT_EQ(toolTips(), std::vector<std::string>{"a@b.c"});
}

TEST_F(Looks, TheFieldsOwnToolTipStays) {
  [field setToolTip:@"Recipients"];
  [field setStringValue:@"a@b.c"];
  [window display];
  EXPECT_EQ(text([field toolTip]), "Recipients");
}

TEST_F(Looks, AValueThatWasSetBeforeTheFieldWasDrawnShowsNames) {
  RecipientField *const fresh =
      [[[RecipientField alloc] initWithFrame:NSMakeRect(0, 0, 200, 24)] autorelease];
  [fresh setDelegate:delegate];
  [fresh setStringValue:@"Anna<anna@example.org>"];
  EXPECT_EQ(text([tokenAt([[fresh cell] tokenText], 0) displayString]), "Anna");
  EXPECT_EQ(text([fresh stringValue]), "anna@example.org");
}
