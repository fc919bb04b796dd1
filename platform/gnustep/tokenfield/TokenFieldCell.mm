#import "platform/gnustep/tokenfield/TokenFieldCell.h"

#import "platform/gnustep/tokenfield/FieldToken.h"
#import "platform/gnustep/tokenfield/TokenEditor.h"
#import "platform/gnustep/tokenfield/TokenPill.h"

namespace {

NSString *const kJoint = @",";

/// The separator that stands for an empty piece. Empty when the piece ended with a line break.
NSString *separatorFor(const std::u16string &text, tokens::Range piece,
                       const tokens::IsTokenizing &isTokenizing) {
  if (isTokenizing(u',')) return kJoint;
  for (const std::size_t i : {piece.end(), piece.location - 1}) {
    if (i < text.size() && isTokenizing(text[i])) return stringOf({&text[i], 1});
  }
  return @"";
}

}  // namespace

// Every token field's cell is a TokenFieldCell, also in interface files and copies, which name the
// platform's class.
@implementation NSTokenFieldCell (Tokens)

+ (id)allocWithZone:(NSZone *)zone {
  const BOOL isPlatforms = self == [NSTokenFieldCell class];
  return NSAllocateObject(isPlatforms ? [TokenFieldCell class] : self, 0, zone);
}

@end

@implementation TokenFieldCell

- (id)initTextCell:(NSString *)text {
  self = [super initTextCell:@""];
  if (self == nil) return nil;
  [self setStringValue:text ?: @""];
  return self;
}

- (id)initWithCoder:(NSCoder *)coder {
  self = [super initWithCoder:coder];
  if (self == nil) return nil;
  if ([coder allowsKeyedCoding] && [coder containsValueForKey:@"placeholderString"]) {
    [self setPlaceholderString:[coder decodeObjectForKey:@"placeholderString"]];
  }
  return self;
}

- (void)dealloc {
  [_editor setCell:nil];
  [_editor release];
  [_layout release];
  [_toolTips release];
  [_tokenText release];
  [super dealloc];
}

- (id)copyWithZone:(NSZone *)zone {
  TokenFieldCell *const copy = [super copyWithZone:zone];
  // The platform copies the pointers only.
  [copy->tokenizingCharacterSet retain];
  copy->_editor = nil;
  copy->_layout = nil;
  copy->_toolTips = nil;
  copy->_tokenText = nil;
  // The copy may be for a field of another size.
  copy->_layoutSize = NSZeroSize;
  copy->_tokenRoom = 0;
  NSMutableArray *const tokens = [NSMutableArray array];
  for (id object in [self objectValue]) [tokens addObject:object];
  [copy setObjectValue:tokens];
  return copy;
}

#pragma mark - Text

- (NSAttributedString *)tokenText {
  if (_tokenText == nil) _tokenText = [[NSAttributedString alloc] init];
  return _tokenText;
}

- (void)setTokenText:(NSAttributedString *)text {
  if (text == _tokenText) return;
  [_tokenText release];
  _tokenText = [text copy];
  [self forgetLayout];
  [static_cast<NSControl *>([self controlView]) updateCell:self];
}

/// A new value, whether or not the former one is being edited.
- (void)replaceTokenText:(NSAttributedString *)text {
  [self setTokenText:text];
  if (![self isBeingEdited]) return;
  [_editor beginWithText:text scrolledTo:NSZeroPoint];
  [_editor setSelectedRange:NSMakeRange([text length], 0)];
}

- (void)takeTextFromEditor {
  if (![self isBeingEdited]) return;
  NSAttributedString *const text = [_editor textStorage];
  if (![text isEqualToAttributedString:[self tokenText]]) [self setTokenText:text];
}

- (NSCharacterSet *)tokenizingCharacterSet {
  return [super tokenizingCharacterSet] ?: [[self class] defaultTokenizingCharacterSet];
}

- (NSTimeInterval)defaultCompletionDelay {
  return [[self class] defaultCompletionDelay];
}

- (NSCharacterSet *)defaultTokenizingCharacterSet {
  return [[self class] defaultTokenizingCharacterSet];
}

#pragma mark - Values

/// The values of the elements, in order; an empty string for an empty piece.
- (NSArray *)values {
  NSView *const view = [self controlView];
  if ([view respondsToSelector:@selector(validateEditing)]) {
    [static_cast<NSControl *>(view) validateEditing];
  }
  NSAttributedString *const text = [self tokenText];
  NSMutableArray *const values = [NSMutableArray array];
  for (const tokens::Element &element :
       tokens::elements(utf16Of([text string]), tokenizingOf([self tokenizingCharacterSet]))) {
    switch (element.kind) {
      case tokens::Element::Kind::Token:
        [values addObject:[tokenAt(text, element.range.location) representedObject] ?: @""];
        break;
      case tokens::Element::Kind::Fragment:
        [values addObject:[[text string] substringWithRange:rangeOf(element.range)]];
        break;
      case tokens::Element::Kind::Nothing:
        [values addObject:@""];
        break;
    }
  }
  return values;
}

- (NSString *)stringValue {
  return [[self values] componentsJoinedByString:kJoint];
}

- (id)objectValue {
  return [self values];
}

- (NSAttributedString *)attributedStringValue {
  return [[[NSAttributedString alloc] initWithString:[self stringValue]
                                          attributes:[self textAttributes]] autorelease];
}

- (NSString *)title {
  return [self stringValue];
}

- (BOOL)hasValidObjectValue {
  return YES;
}

- (void)setStringValue:(NSString *)string {
  const std::u16string text = utf16Of(string);
  const tokens::IsTokenizing isTokenizing = tokenizingOf([self tokenizingCharacterSet]);
  const std::vector<tokens::Range> pieces = tokens::pieces(text, isTokenizing);
  const BOOL isList = pieces.size() > 1;
  NSMutableAttributedString *const result = [[[NSMutableAttributedString alloc] init] autorelease];
  for (const tokens::Range piece : pieces) {
    if (piece.length > 0) {
      NSString *const typed = stringOf({text.data() + piece.location, piece.length});
      NSArray *const token = [NSArray arrayWithObject:[self tokenForEditingString:typed]];
      [result appendAttributedString:[self textWithTokens:token]];
    } else if (isList) {
      NSString *const separator = separatorFor(text, piece, isTokenizing);
      [result appendAttributedString:[[[NSAttributedString alloc]
                                         initWithString:separator
                                             attributes:[self textAttributes]] autorelease]];
    }
  }
  [self replaceTokenText:result];
}

- (void)setObjectValue:(id)object {
  // From an interface file.
  if ([object isKindOfClass:[NSAttributedString class]]) object = [object string];
  if (object == nil || [object isKindOfClass:[NSString class]]) {
    [self setStringValue:object ?: @""];
    return;
  }
  NSArray *const objects =
      [object isKindOfClass:[NSArray class]] ? object : [NSArray arrayWithObject:object];
  NSMutableArray *const tokens = [NSMutableArray arrayWithCapacity:[objects count]];
  for (id each in objects) [tokens addObject:[self tokenForRepresentedObject:each]];
  [self replaceTokenText:[self textWithTokens:tokens]];
}

- (void)setAttributedStringValue:(NSAttributedString *)string {
  [self setStringValue:[string string] ?: @""];
}

- (void)setTitle:(NSString *)title {
  [self setStringValue:title ?: @""];
}

#pragma mark - Editing

- (NSTextView *)fieldEditorForView:(NSView *)view {
  (void)view;
  if (_editor == nil) {
    _editor = [[TokenEditor alloc] initWithFrame:NSMakeRect(0, 0, 1, 1)];
    [_editor setCell:self];
  }
  return _editor;
}

- (BOOL)isBeingEdited {
  return [_editor delegate] != nil;
}

- (NSText *)setUpFieldEditorAttributes:(NSText *)editor {
  NSText *const result = [super setUpFieldEditorAttributes:editor];
  // Tokens are attachments, which plain text would lose.
  [result setRichText:YES];
  [result setImportsGraphics:NO];
  [static_cast<NSTextView *>(result) setAllowsUndo:YES];
  [static_cast<NSTextView *>(result) setTypingAttributes:[self textAttributes]];
  return result;
}

- (void)selectWithFrame:(NSRect)frame
                 inView:(NSView *)view
                 editor:(NSText *)editor
               delegate:(id)delegate
                  start:(NSInteger)start
                 length:(NSInteger)length {
  NSAttributedString *const text = [[[self tokenText] retain] autorelease];
  const NSPoint scrolled = [self scrolled];
  [super selectWithFrame:frame inView:view editor:editor delegate:delegate start:0 length:0];
  [_editor beginWithText:text scrolledTo:scrolled];
  if (length > 0) [_editor setSelectedRange:NSMakeRange(start, length)];
}

- (void)editWithFrame:(NSRect)frame
               inView:(NSView *)view
               editor:(NSText *)editor
             delegate:(id)delegate
                event:(NSEvent *)event {
  [self selectWithFrame:frame inView:view editor:editor delegate:delegate start:0 length:0];
  if ([event type] == NSLeftMouseDown) [editor mouseDown:event];
}

- (void)endEditing:(NSText *)editor {
  [super endEditing:editor];
  _scrolled = NSZeroPoint;
}

- (BOOL)isEntryAcceptable:(NSString *)string {
  (void)string;
  return YES;
}

@end
