#import "platform/gnustep/tokenfield/TokenEditor.h"

#include <algorithm>

#import "platform/gnustep/keyboard/NSTextView+PlainKeys.h"
#import "platform/gnustep/tokenfield/FieldToken.h"
#import "platform/gnustep/tokenfield/TokenCompletion.h"
#import "platform/gnustep/tokenfield/TokenFieldCell.h"
#import "platform/gnustep/tokenfield/TokenLayout.h"
#import "platform/gnustep/tokenfield/TokenPill.h"

namespace {

constexpr unichar kEscape = 0x1B;

BOOL isReturn(unichar character) {
  return character == NSCarriageReturnCharacter || character == NSEnterCharacter ||
         character == NSNewlineCharacter;
}

/// A text may contain the character that stands for a token.
NSString *withoutMarks(NSString *string) {
  const unichar mark = NSAttachmentCharacter;
  return [string stringByReplacingOccurrencesOfString:[NSString stringWithCharacters:&mark length:1]
                                           withString:@""];
}

}  // namespace

@implementation TokenEditor

- (id)initWithFrame:(NSRect)frame {
  self = [super initWithFrame:frame];
  if (self == nil) return nil;
  [self setFieldEditor:YES];
  [self setUsesFontPanel:NO];
  [self setSmartInsertDeleteEnabled:NO];
  breakLinesBetweenTokens([self layoutManager]);
  _completion = [[TokenCompletion alloc] initWithEditor:self];
  // A separate undo manager, because the end of editing removes all its actions, and other text
  // views use that of the window.
  _undoManager = [[NSUndoManager alloc] init];
  return self;
}

- (void)dealloc {
  [_completion invalidate];
  [_completion release];
  [_undoManager removeAllActions];
  [_undoManager release];
  [super dealloc];
}

- (void)setCell:(TokenFieldCell *)cell {
  _cell = cell;
}

- (TokenFieldCell *)cell {
  return _cell;
}

- (NSUndoManager *)undoManager {
  return _undoManager;
}

- (void)beginWithText:(NSAttributedString *)text scrolledTo:(NSPoint)point {
  [_undoManager removeAllActions];
  NSTextStorage *const storage = [self textStorage];
  [storage setAttributedString:text];
  [storage addAttributes:[_cell textAttributes] range:NSMakeRange(0, [storage length])];
  [self fitTokens];
  [self setTypingAttributes:nil];
  [self sizeToFit];
  // The cell sets the origin to that of the clip view in the field.
  [self setFrameOrigin:NSZeroPoint];
  NSClipView *const clipView = static_cast<NSClipView *>([self superview]);
  if ([clipView isKindOfClass:[NSClipView class]]) {
    [clipView scrollToPoint:[clipView constrainScrollPoint:point]];
  }
}

- (void)setDelegate:(id)delegate {
  if (delegate == nil) [_completion close];
  [super setDelegate:delegate];
}

- (BOOL)resignFirstResponder {
  const BOOL resigns = [super resignFirstResponder];
  if (resigns) [_completion close];
  return resigns;
}

/// Always the cell's, because text that is typed next to a token must not get its attachment.
- (void)setTypingAttributes:(NSDictionary *)attributes {
  [super setTypingAttributes:_cell == nil ? attributes : [_cell textAttributes]];
}

#pragma mark - Layout

- (void)fitTokens {
  [self fitTokensInto:NSWidth([[self superview] bounds])];
}

- (void)fitTokensInto:(CGFloat)room {
  NSTextStorage *const storage = [self textStorage];
  for (NSUInteger i = 0; i < [storage length]; ++i) {
    TokenPill *const pill = [tokenAt(storage, i) pill];
    [pill setMaximumWidth:room];
    [pill setEnabled:[_cell isEnabled]];
    [pill setPlain:[_cell tokenStyle] == NSPlainTextTokenStyle];
  }
}

- (void)tokenRoomChanged:(CGFloat)width {
  [self fitTokensInto:width];
  NSTextStorage *const storage = [self textStorage];
  [storage edited:NSTextStorageEditedAttributes
               range:NSMakeRange(0, [storage length])
      changeInLength:0];
}

- (void)drawRect:(NSRect)rect {
  [super drawRect:rect];
  // Of the field, because drawing a text view removes its own tool tips.
  [_cell updateToolTipsOfView:[_cell controlView]];
}

#pragma mark - Fragments

- (tokens::IsTokenizing)isTokenizing {
  return tokenizingOf([_cell tokenizingCharacterSet]);
}

/// With the white space around it, which is removed when the fragment becomes a token.
- (NSRange)wholeFragmentRange {
  const std::u16string text = utf16Of([self string]);
  return rangeOf(tokens::fragmentAt(text, NSMaxRange([self selectedRange]), [self isTokenizing]));
}

- (NSRange)fragmentRange {
  const NSRange whole = [self wholeFragmentRange];
  return rangeOf(tokens::trimmed(utf16Of([self string]), {whole.location, whole.length}));
}

- (NSInteger)fragmentTokenIndex {
  const std::u16string text = utf16Of([self string]);
  return static_cast<NSInteger>(tokens::tokensBefore(text, [self wholeFragmentRange].location));
}

- (NSAttributedString *)textForStrings:(NSArray *)strings atIndex:(NSUInteger)index {
  NSMutableArray *const tokens = [NSMutableArray arrayWithCapacity:[strings count]];
  for (NSString *string in strings) [tokens addObject:[_cell tokenForEditingString:string]];
  return [_cell textWithTokens:[_cell acceptedTokens:tokens atIndex:index]];
}

- (void)replaceRange:(NSRange)range withTokensForStrings:(NSArray *)strings {
  const NSUInteger index = tokens::tokensBefore(utf16Of([self string]), range.location);
  [self replaceRange:range withText:[self textForStrings:strings atIndex:index]];
}

/// As a change by the user: the delegate is asked and notified, and it can be undone.
- (void)replaceRange:(NSRange)range withText:(NSAttributedString *)text {
  if (![self shouldChangeTextInRange:range replacementString:[text string]]) return;
  [[self textStorage] replaceCharactersInRange:range withAttributedString:text];
  [self setSelectedRange:NSMakeRange(range.location + [text length], 0)];
  [self didChangeText];
}

/// Answers whether there was one.
- (BOOL)finishFragmentAtCaret {
  const NSRange fragment = [self fragmentRange];
  if (fragment.length == 0) return NO;
  NSString *const typed = [[self string] substringWithRange:fragment];
  [self replaceRange:[self wholeFragmentRange]
      withTokensForStrings:[NSArray arrayWithObject:typed]];
  return YES;
}

- (BOOL)hasFragments {
  for (const tokens::Element &element :
       tokens::elements(utf16Of([self string]), [self isTokenizing])) {
    if (element.kind == tokens::Element::Kind::Fragment) return YES;
  }
  return NO;
}

- (void)finishFragments {
  [_completion close];
  std::vector<tokens::Element> elements =
      tokens::elements(utf16Of([self string]), [self isTokenizing]);
  NSUInteger index = static_cast<NSUInteger>(std::count_if(
      elements.begin(), elements.end(),
      [](const tokens::Element &element) { return element.kind == tokens::Element::Kind::Token; }));
  // From the end, so that the ranges in front stay valid.
  std::reverse(elements.begin(), elements.end());
  for (const tokens::Element &element : elements) {
    if (element.kind == tokens::Element::Kind::Token) --index;
    if (element.kind != tokens::Element::Kind::Fragment) continue;
    NSString *const typed = [[self string] substringWithRange:rangeOf(element.range)];
    const tokens::Range whole =
        tokens::fragmentAt(utf16Of([self string]), element.range.location, [self isTokenizing]);
    NSArray *const strings = [NSArray arrayWithObject:typed];
    [[self textStorage] replaceCharactersInRange:rangeOf(whole)
                            withAttributedString:[self textForStrings:strings atIndex:index]];
  }
  [_undoManager removeAllActions];
}

#pragma mark - Typing

/// string: also an attributed one, of which the text counts.
- (void)insertText:(id)string {
  NSString *const typed =
      withoutMarks([string isKindOfClass:[NSAttributedString class]] ? [string string] : string);
  const tokens::IsTokenizing isTokenizing = [self isTokenizing];
  NSUInteger start = 0;
  for (NSUInteger i = 0; i < [typed length]; ++i) {
    const unichar character = [typed characterAtIndex:i];
    if (!tokens::separates(character, isTokenizing)) continue;
    if (i > start) [super insertText:[typed substringWithRange:NSMakeRange(start, i - start)]];
    start = i + 1;
    if ([self finishFragmentAtCaret]) continue;
    // Without a text before it a separator stays visible and ends an empty piece, but a line break
    // is dropped.
    NSString *const separator = [typed substringWithRange:NSMakeRange(i, 1)];
    if (isTokenizing(character)) [super insertText:separator];
  }
  if (start < [typed length]) [super insertText:[typed substringFromIndex:start]];
}

- (void)didChangeText {
  [self fitTokens];
  [super didChangeText];
  [_completion textChanged];
}

- (void)doCommandBySelector:(SEL)command {
  if (![_completion handleCommand:command]) [super doCommandBySelector:command];
}

- (void)insertNewline:(id)sender {
  (void)sender;
  if ([self finishFragmentAtCaret]) return;
  if ([self hasFragments]) {
    [self finishFragments];
    [self didChangeText];
    return;
  }
  NSControl *const field = static_cast<NSControl *>([self delegate]);
  if ([field action] != NULL) {
    [field sendAction:[field action] to:[field target]];
  } else {
    [[[self window] defaultButtonCell] performClick:self];
  }
}

- (void)complete:(id)sender {
  (void)sender;
  [_completion askNow];
}

/// Return while there is a fragment or a list, Escape while there is a list.
- (BOOL)wantsKeyEquivalent:(NSEvent *)event {
  if (([event modifierFlags] & NSCommandKeyMask) != 0) return NO;
  NSString *const characters = [event charactersIgnoringModifiers];
  const unichar character = [characters length] == 1 ? [characters characterAtIndex:0] : 0;
  if (character == kEscape) return [_completion isListOpen];
  return isReturn(character) && ([self hasFragments] || [_completion isListOpen]);
}

@end
