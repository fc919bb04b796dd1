#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

// On the Mac a field with NSLineBreakByTruncatingTail ends a long text with an ellipsis. The
// platform does so for buttons only and clips the texts of fields.

@interface NSCell (PlatformDrawing)
- (NSAttributedString *)_drawAttributedString;
@end

namespace {

constinit platform::ReplacedMethod<void(NSRect, NSView *)> platformDrawInterior;

NSString *const kEllipsis = @"\u2026";

NSAttributedString *beginningOf(NSAttributedString *text, NSUInteger length) {
  NSMutableAttributedString *const shorter = [[text mutableCopy] autorelease];
  const NSUInteger whole = [text length];
  // Composed character sequences are kept whole.
  const NSUInteger end =
      length == 0 ? 0 : [[text string] rangeOfComposedCharacterSequenceAtIndex:length].location;
  [shorter replaceCharactersInRange:NSMakeRange(end, whole - end) withString:kEllipsis];
  return shorter;
}

/// The longest prefix of the text that, with an ellipsis, is not wider than `width`.
NSAttributedString *truncated(NSAttributedString *text, CGFloat width) {
  NSUInteger fits = 0;
  NSUInteger tooLong = [text length];
  while (fits + 1 < tooLong) {
    const NSUInteger middle = (fits + tooLong) / 2;
    if ([beginningOf(text, middle) size].width <= width) {
      fits = middle;
    } else {
      tooLong = middle;
    }
  }
  return beginningOf(text, fits);
}

}  // namespace

@implementation NSTextFieldCell (Truncation)

+ (void)load {
  platformDrawInterior.install(self, @selector(drawInteriorWithFrame:inView:),
                               @selector(drawTruncatedInteriorWithFrame:inView:));
}

- (void)drawTruncatedInteriorWithFrame:(NSRect)frame inView:(NSView *)view {
  const BOOL mayBeCut = !_cell.in_editing && [self lineBreakMode] == NSLineBreakByTruncatingTail;
  NSAttributedString *const text = mayBeCut ? [self _drawAttributedString] : nil;
  const NSRect place = [self titleRectForBounds:frame];
  if ([text length] > 0 && [text size].width > NSWidth(place)) {
    [truncated(text, NSWidth(place)) drawInRect:place];
  } else {
    platformDrawInterior(self, _cmd, frame, view);
  }
}

@end
