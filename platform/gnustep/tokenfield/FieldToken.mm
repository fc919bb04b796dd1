#import "platform/gnustep/tokenfield/FieldToken.h"

#import "platform/gnustep/tokenfield/TokenPill.h"

@implementation FieldToken

+ (FieldToken *)tokenWithRepresentedObject:(id)representedObject
                             editingString:(NSString *)editingString
                             displayString:(NSString *)displayString {
  FieldToken *const token = [[[self alloc] initWithFileWrapper:nil] autorelease];
  token->_representedObject = [representedObject retain];
  token->_editingString = [editingString copy];
  token->_displayString = [displayString copy];
  [token setAttachmentCell:[[[TokenPill alloc] init] autorelease]];
  return token;
}

- (void)dealloc {
  [_representedObject release];
  [_editingString release];
  [_displayString release];
  [super dealloc];
}

- (id)representedObject {
  return _representedObject;
}

- (NSString *)representedString {
  if ([_representedObject isKindOfClass:[NSString class]]) return _representedObject;
  return [_representedObject description];
}

- (NSString *)editingString {
  return _editingString ?: [self representedString];
}

- (NSString *)displayString {
  return _displayString ?: [self representedString];
}

- (TokenPill *)pill {
  return static_cast<TokenPill *>([self attachmentCell]);
}

@end

FieldToken *tokenAt(NSAttributedString *text, NSUInteger index) {
  if (index >= [text length]) return nil;
  id const attachment = [text attribute:NSAttachmentAttributeName
                                atIndex:index
                         effectiveRange:NULL];
  return [attachment isKindOfClass:[FieldToken class]] ? attachment : nil;
}

std::u16string utf16Of(NSString *string) {
  std::u16string text([string length], u'\0');
  [string getCharacters:reinterpret_cast<unichar *>(text.data())];
  return text;
}

NSString *stringOf(std::u16string_view text) {
  return [NSString stringWithCharacters:reinterpret_cast<const unichar *>(text.data())
                                 length:text.size()];
}

NSRange rangeOf(tokens::Range range) {
  return NSMakeRange(range.location, range.length);
}

tokens::IsTokenizing tokenizingOf(NSCharacterSet *set) {
  return [set](char16_t character) { return [set characterIsMember:character] != NO; };
}
