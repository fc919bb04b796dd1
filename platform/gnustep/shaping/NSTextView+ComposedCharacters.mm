#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "platform/gnustep/shaping/Paragraph.h"
#import "platform/gnustep/shaping/UserCharacters.h"

// A key deletes or selects what a person takes for a character. The platform deletes one UTF-16
// unit, which leaves half an emoji.

namespace {

constinit platform::ReplacedMethod<void(id)> platformDeleteBackward;
constinit platform::ReplacedMethod<void(id)> platformDeleteForward;

}  // namespace

@interface NSTextView (PlatformMovement)
- (void)_move:(GSInsertionPointMovementDirection)direction
     distance:(CGFloat)distance
       select:(BOOL)isSelecting;
@end

@implementation NSTextView (ComposedCharacters)

+ (void)load {
  platformDeleteBackward.install(self, @selector(deleteBackward:),
                                 @selector(deleteCharacterBackward:));
  platformDeleteForward.install(self, @selector(deleteForward:),
                                @selector(deleteCharacterForward:));
}

- (void)deleteCharacterBackward:(id)sender {
  const NSRange selection = [self rangeForUserTextChange];
  const NSUInteger end = selection.location;
  if (end != NSNotFound && selection.length == 0 && end > 0) {
    const Paragraph paragraph = paragraphAt([self string], end - 1);
    const NSUInteger first =
        paragraph.start + user_characters::deletionBefore(paragraph.units, end - paragraph.start);
    if (end - first > 1) {
      [self deleteUnits:NSMakeRange(first, end - first)];
      return;
    }
  }
  platformDeleteBackward(self, _cmd, sender);
}

- (void)deleteCharacterForward:(id)sender {
  const NSRange selection = [self rangeForUserTextChange];
  const NSUInteger first = selection.location;
  if (first != NSNotFound && selection.length == 0 && first < [[self string] length]) {
    const Paragraph paragraph = paragraphAt([self string], first);
    const NSUInteger end =
        paragraph.start + user_characters::endAfter(paragraph.units, first - paragraph.start);
    if (end - first > 1) {
      [self deleteUnits:NSMakeRange(first, end - first)];
      return;
    }
  }
  platformDeleteForward(self, _cmd, sender);
}

- (void)deleteUnits:(NSRange)range {
  if (![self shouldChangeTextInRange:range replacementString:@""]) return;
  NSTextStorage *const storage = [self textStorage];
  NSDictionary *const attributes = [[[storage attributesAtIndex:range.location
                                                 effectiveRange:NULL] retain] autorelease];
  [storage beginEditing];
  [storage deleteCharactersInRange:range];
  [storage endEditing];
  [self setTypingAttributes:attributes];
  [self didChangeText];
}

- (void)moveLeftAndModifySelection:(id)sender {
  (void)sender;
  [self _move:GSInsertionPointMoveLeft distance:0 select:YES];
}

- (void)moveRightAndModifySelection:(id)sender {
  (void)sender;
  [self _move:GSInsertionPointMoveRight distance:0 select:YES];
}

@end
