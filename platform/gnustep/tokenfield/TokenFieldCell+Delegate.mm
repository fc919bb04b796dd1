#include <unordered_map>

#import "platform/gnustep/tokenfield/FieldToken.h"
#import "platform/gnustep/tokenfield/NSTokenField+Tokens.h"
#import "platform/gnustep/tokenfield/TokenFieldCell.h"
#import "platform/gnustep/tokenfield/TokenPill.h"

@implementation TokenFieldCell (Delegate)

- (NSTokenField *)tokenField {
  NSView *const view = [self controlView];
  return [view isKindOfClass:[NSTokenField class]] ? static_cast<NSTokenField *>(view) : nil;
}

/// The field's delegate if it has the method, otherwise nil.
- (id<NSTokenFieldDelegate>)delegateWith:(SEL)method {
  id const delegate = [[self tokenField] delegate];
  return [delegate respondsToSelector:method] ? delegate : nil;
}

- (FieldToken *)tokenForEditingString:(NSString *)string {
  id const object = [[self delegateWith:@selector(tokenField:representedObjectForEditingString:)]
                             tokenField:[self tokenField]
      representedObjectForEditingString:string];
  if (object == nil) {
    return [FieldToken tokenWithRepresentedObject:string
                                    editingString:string
                                    displayString:[self displayStringFor:string]];
  }
  NSString *shown = [self displayStringFor:object];
  if (shown == nil) {
    const std::u16string text = utf16Of(string);
    const tokens::Range part = tokens::shownPart(text);
    shown = [string substringWithRange:rangeOf(part)];
  }
  return [FieldToken tokenWithRepresentedObject:object
                                  editingString:[self editingStringFor:object] ?: string
                                  displayString:shown];
}

- (FieldToken *)tokenForRepresentedObject:(id)object {
  return [FieldToken tokenWithRepresentedObject:object
                                  editingString:[self editingStringFor:object]
                                  displayString:[self displayStringFor:object]];
}

- (NSString *)displayStringFor:(id)object {
  return [[self delegateWith:@selector(tokenField:
                                 displayStringForRepresentedObject:)] tokenField:[self tokenField]
                                               displayStringForRepresentedObject:object];
}

- (NSString *)editingStringFor:(id)object {
  return [[self delegateWith:@selector(tokenField:
                                 editingStringForRepresentedObject:)] tokenField:[self tokenField]
                                               editingStringForRepresentedObject:object];
}

- (NSArray *)acceptedTokens:(NSArray *)tokens atIndex:(NSUInteger)index {
  id<NSTokenFieldDelegate> const delegate = [self delegateWith:@selector(tokenField:
                                                                   shouldAddObjects:atIndex:)];
  if (delegate == nil) return tokens;
  NSMutableArray *const objects = [NSMutableArray arrayWithCapacity:[tokens count]];
  std::unordered_map<id, FieldToken *> offered;
  for (FieldToken *token in tokens) {
    [objects addObject:[token representedObject]];
    offered.emplace([token representedObject], token);
  }
  NSMutableArray *const accepted = [NSMutableArray array];
  for (id object in [delegate tokenField:[self tokenField]
                        shouldAddObjects:objects
                                 atIndex:index]) {
    // An object that was offered keeps its token and its editing string.
    const auto known = offered.find(object);
    [accepted
        addObject:known == offered.end() ? [self tokenForRepresentedObject:object] : known->second];
  }
  return accepted;
}

- (NSArray *)completionsForSubstring:(NSString *)substring
                        indexOfToken:(NSInteger)index
                            selected:(NSInteger *)selected {
  *selected = -1;
  return [[self delegateWith:@selector(tokenField:
                                 completionsForSubstring:indexOfToken:indexOfSelectedItem:)]
                   tokenField:[self tokenField]
      completionsForSubstring:substring
                 indexOfToken:index
          indexOfSelectedItem:selected];
}

- (NSAttributedString *)textWithTokens:(NSArray *)tokens {
  NSMutableAttributedString *const text = [[[NSMutableAttributedString alloc] init] autorelease];
  const unichar mark = NSAttachmentCharacter;
  NSString *const character = [NSString stringWithCharacters:&mark length:1];
  NSMutableDictionary *const attributes = [[[self textAttributes] mutableCopy] autorelease];
  for (FieldToken *token in tokens) {
    [[token pill] setFont:[self font]];
    // Copied by the text.
    [attributes setObject:token forKey:NSAttachmentAttributeName];
    [text appendAttributedString:[[[NSAttributedString alloc] initWithString:character
                                                                  attributes:attributes]
                                     autorelease]];
  }
  return text;
}

@end
