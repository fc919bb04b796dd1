#import "text/WindowTitle.h"

#import "text/UTF16.h"
#import "text/SingleLine.h"

namespace {

/// In UTF-16 units, as file systems of the Mac count.
constexpr NSUInteger kLongestTitle = 255;

}  // namespace

NSString *windowTitle(NSString *name) {
  // Of half a surrogate pair the window server gets no title at all.
  NSString *const whole = utf16::stringOf(utf16::wellFormed(utf16::unitsOf(name)));
  NSString *const line =
      [singleLine(whole) stringByTrimmingCharactersInSet:[NSCharacterSet whitespaceCharacterSet]];
  if ([line length] == 0) return nil;
  if ([line length] <= kLongestTitle) return line;
  const NSRange cut = [line rangeOfComposedCharacterSequenceAtIndex:kLongestTitle - 1];
  return [[line substringToIndex:cut.location] stringByAppendingString:@"\u2026"];
}
