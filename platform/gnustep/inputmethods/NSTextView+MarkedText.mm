#import "platform/gnustep/inputmethods/NSTextView+MarkedText.h"

// The text that an input method is composing. It stands in the text, underlined, but is not part of
// it until it is inserted or unmarked: the delegate hears nothing of it, and it cannot be undone.
// The platform's text views always claim to have marked text, because they never initialise the
// range, and replace the wrong part of the text.
//
// Replacing the platform's own methods is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSTextView (MarkedText)

- (BOOL)hasMarkedText {
  return _markedRange.location != NSNotFound && _markedRange.length > 0 &&
         NSMaxRange(_markedRange) <= [_textStorage length];
}

- (NSRange)markedRange {
  return [self hasMarkedText] ? _markedRange : NSMakeRange(NSNotFound, 0);
}

- (NSDictionary *)attributesOfMarkedText {
  NSMutableDictionary *const attributes =
      [NSMutableDictionary dictionaryWithDictionary:[self typingAttributes]];
  [attributes setObject:[NSNumber numberWithInt:NSUnderlineStyleSingle]
                 forKey:NSUnderlineStyleAttributeName];
  return attributes;
}

/// Of the text around it, which typing must not underline.
- (NSDictionary *)attributesWithoutMark {
  NSMutableDictionary *const attributes =
      [NSMutableDictionary dictionaryWithDictionary:[self typingAttributes]];
  [attributes removeObjectForKey:NSUnderlineStyleAttributeName];
  return attributes;
}

/// `selection` is where the caret is in the marked text. An empty text ends the marking. The
/// selected text is replaced by the first one; then the delegate may refuse.
- (void)setMarkedText:(id)text selectedRange:(NSRange)selection {
  NSString *const string =
      [text isKindOfClass:[NSAttributedString class]] ? [text string] : (text ?: @"");
  if (![self hasMarkedText]) {
    if ([string length] == 0 || ![self isEditable]) return;
    if ([self selectedRange].length > 0) [self insertText:@""];
    if ([self selectedRange].length > 0) return;
    _markedRange = NSMakeRange([self selectedRange].location, 0);
  }
  NSAttributedString *const marked =
      [[[NSAttributedString alloc] initWithString:string
                                       attributes:[self attributesOfMarkedText]] autorelease];
  NSDictionary *const typing = [self attributesWithoutMark];
  const NSUInteger first = _markedRange.location;
  [_textStorage beginEditing];
  [_textStorage replaceCharactersInRange:_markedRange withAttributedString:marked];
  [_textStorage endEditing];
  _markedRange = NSMakeRange(first, [string length]);
  [self setSelectedRange:NSMakeRange(first + MIN(selection.location, [string length]), 0)];
  [self setTypingAttributes:typing];
}

- (void)removeMarkedText {
  if ([self hasMarkedText]) [self setMarkedText:@"" selectedRange:NSMakeRange(0, 0)];
  _markedRange = NSMakeRange(NSNotFound, 0);
}

/// Makes the marked text part of the text, as if it had been typed.
- (void)unmarkText {
  if (![self hasMarkedText]) return;
  NSString *const text = [[_textStorage string] substringWithRange:_markedRange];
  [self removeMarkedText];
  [self insertText:text];
}

@end
