#import "platform/gnustep/keyboard/NSTextView+PlainKeys.h"

namespace {

constexpr unichar kEscape = 0x1B;

}  // namespace

@implementation NSTextView (PlainKeys)

- (BOOL)wantsKeyEquivalent:(NSEvent *)event {
  if (![self isEditable] || [self isFieldEditor]) return NO;
  if (([event modifierFlags] & NSCommandKeyMask) != 0) return NO;
  NSString *const characters = [event charactersIgnoringModifiers];
  if ([characters length] != 1) return NO;
  const unichar character = [characters characterAtIndex:0];
  return character == NSCarriageReturnCharacter || character == NSNewlineCharacter ||
         character == NSEnterCharacter || character == kEscape;
}

@end
