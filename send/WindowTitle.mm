#import "send/WindowTitle.h"

#import "send/SingleLine.h"

namespace {

/// In UTF-16 units, as file systems of the Mac count.
constexpr NSUInteger kLongestTitle = 255;

}  // namespace

NSString *windowTitle(NSString *name) {
  NSString *const line =
      [singleLine(name) stringByTrimmingCharactersInSet:[NSCharacterSet whitespaceCharacterSet]];
  if ([line length] == 0) return nil;
  if ([line length] <= kLongestTitle) return line;
  const NSRange cut = [line rangeOfComposedCharacterSequenceAtIndex:kLongestTitle - 1];
  return [[line substringToIndex:cut.location] stringByAppendingString:@"\u2026"];
}
