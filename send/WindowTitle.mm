#import "send/WindowTitle.h"

#import "agent/UTF16.h"

namespace {

/// In UTF-16 units, as file systems of the Mac count.
constexpr NSUInteger kLongestTitle = 255;

NSString *withoutControls(NSString *name) {
  NSMutableCharacterSet *const breaking =
      [[[NSCharacterSet controlCharacterSet] mutableCopy] autorelease];
  [breaking formUnionWithCharacterSet:[NSCharacterSet newlineCharacterSet]];
  // Not every platform counts these as line breaks.
  [breaking addCharactersInString:@"\u2028\u2029"];
  NSArray *const parts = [name componentsSeparatedByCharactersInSet:breaking];
  return [[parts componentsJoinedByString:@" "]
      stringByTrimmingCharactersInSet:[NSCharacterSet whitespaceCharacterSet]];
}

}  // namespace

NSString *windowTitle(NSString *name) {
  // Of half a surrogate pair the window server gets no title at all.
  NSString *const whole = utf16::stringOf(utf16::wellFormed(utf16::unitsOf(name)));
  NSString *const line = withoutControls(whole);
  if ([line length] == 0) return nil;
  if ([line length] <= kLongestTitle) return line;
  const NSRange cut = [line rangeOfComposedCharacterSequenceAtIndex:kLongestTitle - 1];
  return [[line substringToIndex:cut.location] stringByAppendingString:@"\u2026"];
}
