#import "send/WindowTitle.h"

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
  NSString *const line = withoutControls(name);
  if ([line length] == 0) return nil;
  if ([line length] <= kLongestTitle) return line;
  const NSRange cut = [line rangeOfComposedCharacterSequenceAtIndex:kLongestTitle - 1];
  return [[line substringToIndex:cut.location] stringByAppendingString:@"\u2026"];
}
