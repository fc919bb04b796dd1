#import <AppKit/AppKit.h>

#include <string>

#include "platform/gnustep/tokenfield/TokenList.h"

@class TokenPill;

/// A finished token of a token field: one attached character of the field's text, drawn as a pill.
/// Its three texts and its object never change. Main thread only.
@interface FieldToken : NSTextAttachment {
 @private
  id _representedObject;
  NSString *_editingString;
  NSString *_displayString;
}

/// representedObject: not nil. editingString: the text that the user typed or chose and edits
/// again; nil for the represented string. displayString: the text of the pill; nil for the
/// represented string.
+ (FieldToken *)tokenWithRepresentedObject:(id)representedObject
                             editingString:(NSString *)editingString
                             displayString:(NSString *)displayString;

- (id)representedObject;

/// The represented object as text: itself when it is a string, otherwise its description.
- (NSString *)representedString;
- (NSString *)editingString;
- (NSString *)displayString;
- (TokenPill *)pill;

@end

/// The token at a character of a field's text; nil when there is none.
FieldToken *tokenAt(NSAttributedString *text, NSUInteger index);

/// Conversions between Foundation's types and those of TokenList.h.
std::u16string utf16Of(NSString *string);
NSString *stringOf(std::u16string_view text);
NSRange rangeOf(tokens::Range range);

/// Does not retain the set: for the duration of a call.
tokens::IsTokenizing tokenizingOf(NSCharacterSet *set);
