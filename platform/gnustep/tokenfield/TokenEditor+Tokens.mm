#import "platform/gnustep/tokenfield/FieldToken.h"
#import "platform/gnustep/tokenfield/TokenEditor.h"
#import "platform/gnustep/tokenfield/TokenFieldCell.h"
#import "platform/gnustep/tokenfield/TokenLayout.h"

namespace {

NSString *const kListJoint = @", ";

}  // namespace

@implementation TokenEditor (Tokens)

- (FieldToken *)tokenAtIndex:(NSUInteger)index {
  return tokenAt([self textStorage], index);
}

#pragma mark - Keys

/// Selects the token at the index. NO when the selection is not empty, or when there is no token.
- (BOOL)selectTokenAtIndex:(NSUInteger)index {
  if ([self selectedRange].length > 0 || [self tokenAtIndex:index] == nil) return NO;
  [self setSelectedRange:NSMakeRange(index, 1)];
  [self scrollRangeToVisible:[self selectedRange]];
  return YES;
}

- (BOOL)selectTokenBeforeCaret {
  const NSUInteger caret = [self selectedRange].location;
  return caret > 0 && [self selectTokenAtIndex:caret - 1];
}

- (BOOL)selectTokenAfterCaret {
  return [self selectTokenAtIndex:[self selectedRange].location];
}

- (void)deleteBackward:(id)sender {
  if (![self selectTokenBeforeCaret]) [super deleteBackward:sender];
}

- (void)deleteForward:(id)sender {
  if (![self selectTokenAfterCaret]) [super deleteForward:sender];
}

- (void)moveLeft:(id)sender {
  if (![self selectTokenBeforeCaret]) [super moveLeft:sender];
}

- (void)moveRight:(id)sender {
  if (![self selectTokenAfterCaret]) [super moveRight:sender];
}

#pragma mark - Mouse

- (NSPoint)containerPointForEvent:(NSEvent *)event {
  const NSPoint point = [self convertPoint:[event locationInWindow] fromView:nil];
  const NSPoint origin = [self textContainerOrigin];
  return NSMakePoint(point.x - origin.x, point.y - origin.y);
}

- (NSUInteger)tokenIndexForEvent:(NSEvent *)event {
  return tokenIndexAtPoint([self layoutManager], [self containerPointForEvent:event]);
}

/// The index of a caret that is set by this event.
- (NSUInteger)caretIndexForEvent:(NSEvent *)event {
  if ([[self string] length] == 0) return 0;
  CGFloat fraction = 0;
  const NSUInteger glyph =
      [[self layoutManager] glyphIndexForPoint:[self containerPointForEvent:event]
                               inTextContainer:[self textContainer]
                fractionOfDistanceThroughGlyph:&fraction];
  if (glyph >= [[self layoutManager] numberOfGlyphs]) return [[self string] length];
  const NSUInteger index = [[self layoutManager] characterIndexForGlyphAtIndex:glyph];
  return fraction > 0.5 ? index + 1 : index;
}

- (void)mouseDown:(NSEvent *)event {
  if (![self isSelectable]) return;
  const NSUInteger index = [self tokenIndexForEvent:event];
  if (index != NSNotFound) {
    [self mouseDown:event onTokenAtIndex:index];
    return;
  }
  const NSUInteger caret = [self caretIndexForEvent:event];
  const BOOL isPlain = [event clickCount] == 1 && ([event modifierFlags] & NSShiftKeyMask) == 0;
  if (!isPlain || caret < [[self string] length]) {
    [super mouseDown:event];
    return;
  }
  // The platform treats a click behind a token at the end as one on the token.
  [self setSelectedRange:NSMakeRange(caret, 0)];
  [self extendSelectionFrom:[self selectedRange]];
}

- (void)mouseDown:(NSEvent *)event onTokenAtIndex:(NSUInteger)index {
  const NSRange clicked = NSMakeRange(index, 1);
  if ([event clickCount] == 2 && [self isEditable]) {
    [self editTokenAtIndex:index];
    return;
  }
  const BOOL extends = ([event modifierFlags] & NSShiftKeyMask) != 0;
  const NSRange anchor = extends ? [self selectedRange] : clicked;
  [self setSelectedRange:NSUnionRange(anchor, clicked)];
  [self extendSelectionFrom:anchor];
}

/// Extends the selection from the anchor to the mouse until the button is released.
- (void)extendSelectionFrom:(NSRange)anchor {
  constexpr NSUInteger kMask = NSLeftMouseDraggedMask | NSLeftMouseUpMask;
  for (;;) {
    NSEvent *const event = [[self window] nextEventMatchingMask:kMask
                                                      untilDate:[NSDate distantFuture]
                                                         inMode:NSEventTrackingRunLoopMode
                                                        dequeue:YES];
    if (event == nil || [event type] == NSLeftMouseUp) return;
    [self autoscroll:event];
    const NSUInteger token = [self tokenIndexForEvent:event];
    const NSRange reached = token == NSNotFound ? NSMakeRange([self caretIndexForEvent:event], 0)
                                                : NSMakeRange(token, 1);
    [self setSelectedRange:NSUnionRange(anchor, reached)];
  }
}

- (void)editTokenAtIndex:(NSUInteger)index {
  NSString *const text = [[self tokenAtIndex:index] editingString];
  const NSRange range = NSMakeRange(index, 1);
  if (![self shouldChangeTextInRange:range replacementString:text]) return;
  NSAttributedString *const typed =
      [[[NSAttributedString alloc] initWithString:text
                                       attributes:[[self cell] textAttributes]] autorelease];
  [[self textStorage] replaceCharactersInRange:range withAttributedString:typed];
  [self setSelectedRange:NSMakeRange(index, [text length])];
  [self didChangeText];
}

/// The wheel scrolls a field of one line horizontally.
- (void)scrollWheel:(NSEvent *)event {
  NSClipView *const clipView = static_cast<NSClipView *>([self superview]);
  if (![clipView isKindOfClass:[NSClipView class]]) return;
  constexpr CGFloat kWheelPoints = 20;
  NSPoint origin = [clipView bounds].origin;
  const CGFloat distance = ([event deltaY] + [event deltaX]) * kWheelPoints;
  ([[self cell] wraps] ? origin.y : origin.x) -= distance;
  [clipView scrollToPoint:[clipView constrainScrollPoint:origin]];
}

#pragma mark - Pasteboard

- (NSString *)plainTextOfRange:(NSRange)range {
  NSAttributedString *const text = [[self textStorage] attributedSubstringFromRange:range];
  const std::u16string units = utf16Of([text string]);
  // Text without tokens is copied unchanged, with its white space.
  if (tokens::tokensBefore(units, units.size()) == 0) return [text string];
  NSMutableArray *const parts = [NSMutableArray array];
  for (const tokens::Element &element :
       tokens::elements(units, tokenizingOf([[self cell] tokenizingCharacterSet]))) {
    if (element.kind == tokens::Element::Kind::Token) {
      [parts addObject:[tokenAt(text, element.range.location) editingString]];
    } else if (element.kind == tokens::Element::Kind::Fragment) {
      [parts addObject:[[text string] substringWithRange:rangeOf(element.range)]];
    }
  }
  return [parts componentsJoinedByString:kListJoint];
}

- (NSArray *)readablePasteboardTypes {
  return [NSArray arrayWithObject:NSStringPboardType];
}

- (NSArray *)writablePasteboardTypes {
  return [self readablePasteboardTypes];
}

- (void)copy:(id)sender {
  (void)sender;
  if ([self selectedRange].length == 0) return;
  [self writeSelectionToPasteboard:[NSPasteboard generalPasteboard]
                             types:[self writablePasteboardTypes]];
}

- (BOOL)writeSelectionToPasteboard:(NSPasteboard *)pasteboard type:(NSString *)type {
  if (![type isEqualToString:NSStringPboardType]) return NO;
  return [pasteboard setString:[self plainTextOfRange:[self selectedRange]] forType:type];
}

- (BOOL)readSelectionFromPasteboard:(NSPasteboard *)pasteboard type:(NSString *)type {
  NSString *const text =
      [type isEqualToString:NSStringPboardType] ? [pasteboard stringForType:type] : nil;
  if (text == nil || ![self isEditable]) return NO;
  [self insertPastedText:text];
  return YES;
}

- (void)insertPastedText:(NSString *)string {
  const std::u16string text = utf16Of(string);
  const std::vector<tokens::Range> pieces =
      tokens::pieces(text, tokenizingOf([[self cell] tokenizingCharacterSet]));
  if (pieces.size() == 1) {
    [self insertText:string];
    return;
  }
  NSMutableArray *const strings = [NSMutableArray array];
  for (const tokens::Range piece : pieces) {
    if (piece.length > 0) [strings addObject:[string substringWithRange:rangeOf(piece)]];
  }
  [self replaceRange:[self rangeForUserTextChange] withTokensForStrings:strings];
}

@end
