#include "tests/platform/theme/Themed.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/gnustep/shaping/ShapedGlyphs.h"

// The texts are written by their code points where the order of the source would be hard to read.

namespace {

NSString *const kHebrew = @"\u05D0\u05D1\u05D2\u05D3";
NSString *const kArabic = @"\u0645\u0631\u062D\u0628\u0627";
NSString *const kEmoji = @"\U0001F600";

}  // namespace

/// A text view in the window on the screen.
struct Scripts : Themed {
  NSTextView *const text = show([[NSTextView alloc] initWithFrame:NSMakeRect(10, 10, 480, 300)]);

  Scripts() {
    [text setFont:[NSFont systemFontOfSize:13]];
    [[text textContainer] setLineFragmentPadding:0];
    [text setTextContainerInset:NSZeroSize];
    focus(text);
  }

  void set(NSString *string) { [text setString:string]; }

  NSLayoutManager *layout() const { return [text layoutManager]; }

  CGFloat caretAt(NSUInteger index) const {
    return NSMinX([layout() insertionPointRectForCharacterIndex:static_cast<unsigned>(index)
                                                inTextContainer:[text textContainer]]);
  }

  NSUInteger lineOf(NSUInteger index) const {
    const NSRect line = [layout() lineFragmentRectForGlyphAtIndex:index effectiveRange:NULL];
    return static_cast<NSUInteger>(std::lround(NSMinY(line) / NSHeight(line)));
  }

  std::vector<NSRect> selectionRects(NSRange range) const {
    NSUInteger count = 0;
    const NSRect *const rects = [layout() rectArrayForCharacterRange:range
                                        withinSelectedCharacterRange:range
                                                     inTextContainer:[text textContainer]
                                                           rectCount:&count];
    return {rects, rects + count};
  }

  NSUInteger caret() const { return [text selectedRange].location; }
  void setCaret(NSUInteger index) { [text setSelectedRange:NSMakeRange(index, 0)]; }

  /// Clicks in the middle of the line, a bit right of x.
  void clickAt(CGFloat x, CGFloat y = 5) { clickIn(text, NSMakePoint(x, y)); }
};

#pragma mark - Order

TEST_F(Scripts, HebrewRunsFromRightToLeftAtTheRight) {
  set(kHebrew);
  EXPECT_NEAR(caretAt(0), 480, 1);
  for (NSUInteger i = 1; i <= 4; ++i) EXPECT_LT(caretAt(i), caretAt(i - 1)) << i;
}

TEST_F(Scripts, HebrewInALatinLineStaysAtItsPlace) {
  set([NSString stringWithFormat:@"ab %@ cd", kHebrew]);
  EXPECT_EQ(caretAt(0), 0);
  EXPECT_GT(caretAt(3), caretAt(5));
  EXPECT_GT(caretAt(8), caretAt(3));
}

TEST_F(Scripts, ALineThatIsAlignedOtherwiseStaysThere) {
  set(kHebrew);
  [text setAlignment:NSLeftTextAlignment];
  EXPECT_EQ(caretAt(4), 0);
}

TEST_F(Scripts, ALatinParagraphBelowAHebrewOneIsAtTheLeft) {
  set([kHebrew stringByAppendingString:@"\nab"]);
  EXPECT_EQ(caretAt(5), 0);
}

TEST_F(Scripts, EachLineOfALongArabicParagraphIsOrderedByItself) {
  NSMutableString *const words = [NSMutableString string];
  for (int i = 0; i < 30; ++i) [words appendFormat:@"%@ ", kArabic];
  set(words);
  ASSERT_GT(lineOf([words length] - 2), 0U);
  NSRange first = NSMakeRange(0, 0);
  [layout() lineFragmentRectForGlyphAtIndex:0 effectiveRange:&first];
  EXPECT_NEAR(caretAt(0), 480, 1);
  EXPECT_NEAR(caretAt(NSMaxRange(first)), 480, 1);
}

TEST_F(Scripts, AMeasuredTextIsAsWideAsItIsDrawn) {
  NSDictionary *const attributes = [NSDictionary dictionaryWithObject:[NSFont systemFontOfSize:13]
                                                               forKey:NSFontAttributeName];
  const CGFloat width = [kArabic sizeWithAttributes:attributes].width;
  set(kArabic);
  EXPECT_NEAR(caretAt(0) - caretAt([kArabic length]), width, 1);
}

#pragma mark - Lines

TEST_F(Scripts, ThaiWordsStayWhole) {
  NSString *const word = @"\u0E20\u0E32\u0E29\u0E32";
  NSMutableString *const words = [NSMutableString string];
  for (int i = 0; i < 40; ++i) [words appendString:word];
  set(words);
  ASSERT_GT(lineOf([words length] - 1), 0U);
  NSRange first = NSMakeRange(0, 0);
  [layout() lineFragmentRectForGlyphAtIndex:0 effectiveRange:&first];
  EXPECT_EQ(NSMaxRange(first) % [word length], 0U);
}

TEST_F(Scripts, AWordThatIsTooLongIsBrokenBetweenCharacters) {
  NSMutableString *const faces = [NSMutableString string];
  for (int i = 0; i < 80; ++i) [faces appendString:kEmoji];
  set(faces);
  NSRange first = NSMakeRange(0, 0);
  [layout() lineFragmentRectForGlyphAtIndex:0 effectiveRange:&first];
  ASSERT_LT(first.length, [faces length]);
  EXPECT_EQ(first.length % 2, 0U);
}

#pragma mark - Changes

TEST_F(Scripts, LettersJoinWhatWasTypedBeforeThem) {
  set(@"\u0628");
  const NSGlyph alone = [layout() glyphAtIndex:0];
  setCaret(1);
  [text insertText:@"\u0628"];
  EXPECT_NE([layout() glyphAtIndex:0], alone);
  [text deleteBackward:nil];
  EXPECT_EQ([layout() glyphAtIndex:0], alone);
}

TEST_F(Scripts, TheLastHebrewLetterGoneTheParagraphIsThePlatformsAgain) {
  set(@"\u05D0 a. b");
  ASSERT_TRUE(shaped_glyphs::isShaped([layout() glyphAtIndex:2]));
  setCaret(1);
  [text deleteBackward:nil];
  EXPECT_EQ([layout() glyphAtIndex : 1], NSGlyph { 'a' });
  EXPECT_LT(caretAt(1), caretAt(2));
}

TEST_F(Scripts, ALineBreakPartsWhatWasJoined) {
  set(@"\u0628\u0628");
  const NSGlyph joined = [layout() glyphAtIndex:1];
  setCaret(1);
  [text insertText:@"\n"];
  EXPECT_NE([layout() glyphAtIndex:2], joined);
}

TEST_F(Scripts, TextTypedBehindAnotherScriptHasTheFieldsFont) {
  set(@"\u0E01");
  setCaret(1);
  [text insertText:@"a"];
  EXPECT_EQ([[text textStorage] attribute:NSFontAttributeName atIndex:1 effectiveRange:NULL],
            [NSFont systemFontOfSize:13]);
}

TEST_F(Scripts, AWholeEmojiIsDeletedByOneKey) {
  set([NSString stringWithFormat:@"a%@b%@", kEmoji, kEmoji]);
  setCaret(6);
  [text deleteBackward:nil];
  NSString *const left = [NSString stringWithFormat:@"a%@b", kEmoji];
  EXPECT_TRUE([[text string] isEqualToString:left]);
  setCaret(1);
  [text deleteForward:nil];
  EXPECT_TRUE([[text string] isEqualToString:@"ab"]);
}

#pragma mark - Mouse

TEST_F(Scripts, AClickInHebrewSetsTheCaretWhereItWasClicked) {
  set(kHebrew);
  for (NSUInteger i = 0; i <= 4; ++i) {
    clickAt(caretAt(i) + (i == 0 ? -1 : 1));
    EXPECT_EQ(caret(), i);
  }
}

TEST_F(Scripts, AClickLeftOfALineFromRightToLeftSetsTheCaretAtItsEnd) {
  set(kHebrew);
  clickAt(10);
  EXPECT_EQ(caret(), 4U);
}

TEST_F(Scripts, AClickOnTheRightHalfOfAnEmojiSetsTheCaretBehindAllOfIt) {
  set([NSString stringWithFormat:@"%@%@", kEmoji, kEmoji]);
  clickAt(caretAt(2) - 2);
  EXPECT_EQ(caret(), 2U);
}

TEST_F(Scripts, ASelectionAcrossADirectionHasTwoParts) {
  set([NSString stringWithFormat:@"ab %@ cd", kHebrew]);
  // From the "b" into the Hebrew word, whose first letters are at its right.
  const std::vector<NSRect> rects = selectionRects(NSMakeRange(1, 4));
  ASSERT_EQ(rects.size(), 2U);
  EXPECT_NEAR(NSMinX(rects[0]), caretAt(1), 0.5);
  EXPECT_NEAR(NSMaxX(rects[1]), caretAt(3), 0.5);
  EXPECT_GT(NSMinX(rects[1]), NSMaxX(rects[0]));
}

TEST_F(Scripts, AllOfAHebrewLineIsSelectedAsOnePart) {
  set(kHebrew);
  const std::vector<NSRect> rects = selectionRects(NSMakeRange(0, 4));
  ASSERT_EQ(rects.size(), 1U);
  EXPECT_NEAR(NSWidth(rects[0]), caretAt(0) - caretAt(4), 0.5);
}

#pragma mark - Arrow keys

TEST_F(Scripts, TheLeftArrowGoesThroughAMixedLineFromRightToLeft) {
  set([NSString stringWithFormat:@"ab %@ cd", kHebrew]);
  setCaret([[text string] length]);
  // Before and behind the Hebrew word is the same place.
  for (int i = 0; i < 9; ++i) {
    const CGFloat before = caretAt(caret());
    [text moveLeft:nil];
    EXPECT_LT(caretAt(caret()), before);
  }
  EXPECT_EQ(caret(), 0U);
}

TEST_F(Scripts, TheRightArrowComesBack) {
  set([NSString stringWithFormat:@"ab %@ cd", kHebrew]);
  setCaret(0);
  for (int i = 0; i < 9; ++i) {
    const CGFloat before = caretAt(caret());
    [text moveRight:nil];
    EXPECT_GT(caretAt(caret()), before);
  }
  EXPECT_EQ(caret(), [[text string] length]);
}

TEST_F(Scripts, TheLeftArrowAtTheEndOfAHebrewLineGoesToTheNextOne) {
  set([NSString stringWithFormat:@"%@\n%@", kHebrew, kHebrew]);
  setCaret(4);
  [text moveLeft:nil];
  EXPECT_EQ(caret(), 5U);
}

TEST_F(Scripts, TheRightArrowAtTheBeginningOfAHebrewLineGoesToTheOneBefore) {
  set([NSString stringWithFormat:@"%@\n%@", kHebrew, kHebrew]);
  setCaret(5);
  [text moveRight:nil];
  EXPECT_EQ(caret(), 4U);
}

TEST_F(Scripts, ArrowsStepOverAWholeEmoji) {
  set([NSString stringWithFormat:@"a%@b", kEmoji]);
  setCaret(1);
  [text moveRight:nil];
  EXPECT_EQ(caret(), 3U);
  [text moveLeft:nil];
  EXPECT_EQ(caret(), 1U);
}

TEST_F(Scripts, ShiftAndAnArrowSelectAWholeEmoji) {
  set([NSString stringWithFormat:@"a%@b", kEmoji]);
  setCaret(3);
  [text moveLeftAndModifySelection:nil];
  EXPECT_TRUE(NSEqualRanges([text selectedRange], NSMakeRange(1, 2)));
}

TEST_F(Scripts, UpAndDownKeepTheirColumnInHebrewLines) {
  set([NSString stringWithFormat:@"%@\n%@", kHebrew, kHebrew]);
  setCaret(2);
  [text moveDown:nil];
  EXPECT_EQ(caret(), 7U);
  [text moveUp:nil];
  EXPECT_EQ(caret(), 2U);
}

#pragma mark - Drawing

namespace {

bool isColored(theme::Rgb color) {
  constexpr int kByte = 0xFF;
  constexpr int kClearly = 60;
  const int red = static_cast<int>(color >> 16) & kByte;
  const int green = static_cast<int>(color >> 8) & kByte;
  const int blue = static_cast<int>(color) & kByte;
  const auto [least, greatest] = std::minmax({red, green, blue});
  return greatest - least > kClearly;
}

}  // namespace

TEST_F(Scripts, EmojiAreColored) {
  [text setSelectable:NO];
  set(@"a");
  ASSERT_EQ(Picture(text).count(isColored), 0);
  set(kEmoji);
  EXPECT_GT(Picture(text).count(isColored), 30);
}

/// Draws a text as a label does.
@interface ScriptsView : NSView {
  BOOL _isFlipped;
}
- (void)setFlipped:(BOOL)isFlipped;
@end

@implementation ScriptsView

- (void)setFlipped:(BOOL)isFlipped {
  _isFlipped = isFlipped;
}

- (BOOL)isFlipped {
  return _isFlipped;
}

- (void)drawRect:(NSRect)rect {
  [[NSColor whiteColor] set];
  NSRectFill(rect);
  NSDictionary *const attributes = [NSDictionary dictionaryWithObject:[NSFont systemFontOfSize:20]
                                                               forKey:NSFontAttributeName];
  [@"\u0E01\u0E48 \u05D0\u05D1 \u0915\u093F" drawInRect:[self bounds] withAttributes:attributes];
}

@end

TEST_F(Scripts, TextsAreUprightInFlippedViewsAndInOthers) {
  ScriptsView *const view = show([[ScriptsView alloc] initWithFrame:NSMakeRect(20, 340, 200, 28)]);
  const Picture upright(view);
  ASSERT_GT(upright.count(isInk), 50);
  [view setFlipped:YES];
  EXPECT_EQ(Picture(view), upright);
}

TEST_F(Scripts, ALetterWithABarAtItsTopHasItThereInATextView) {
  [text setSelectable:NO];
  [text setFont:[NSFont systemFontOfSize:40]];
  set(@"\u05D3");
  const Picture picture(text);
  std::vector<long> rows;  // with ink: how much
  for (int y = 0; y < picture.height(); ++y) {
    long ink = 0;
    for (int x = 0; x < picture.width(); ++x) ink += isInk(picture.at(x, y)) ? 1 : 0;
    if (ink > 0) rows.push_back(ink);
  }
  ASSERT_GT(rows.size(), 10U);
  EXPECT_GT(rows[2], 2 * rows[rows.size() - 3]);
}
