#import "text/TextConversion.h"

#import "text/UTF16.h"

namespace {

constexpr NSRange kControls[] = {
    {0x00, 0x20},  // C0
    {0x7F, 0x21},  // DEL and C1
    {0x2028, 2},   // the separators of lines and paragraphs
    {0x202A, 5},   // embeddings and overrides of direction
    {0x2066, 4},   // isolates
};

NSCharacterSet *controls() {
  static NSCharacterSet *set = nil;
  @synchronized([NSCharacterSet class]) {
    if (set == nil) {
      NSMutableCharacterSet *const all = [[[NSMutableCharacterSet alloc] init] autorelease];
      for (const NSRange &range : kControls) [all addCharactersInRange:range];
      set = [all copy];
    }
  }
  return set;
}

/// In UTF-16 units, as file systems of the Mac count.
constexpr NSUInteger kLongestTitle = 255;

}  // namespace

NSString *singleLine(NSString *text) {
  return [[text componentsSeparatedByCharactersInSet:controls()] componentsJoinedByString:@" "];
}

NSString *windowTitle(NSString *name) {
  // Of half a surrogate pair the window server gets no title at all.
  NSString *const whole = utf16::stringOf(utf16::wellFormed(utf16::unitsOf(name)));
  NSString *const line = singleLine(whole);
  NSCharacterSet *const seen = [[NSCharacterSet whitespaceCharacterSet] invertedSet];
  if ([line rangeOfCharacterFromSet:seen].location == NSNotFound || line == nil) return nil;
  if ([line length] <= kLongestTitle) return line;
  const NSRange cut = [line rangeOfComposedCharacterSequenceAtIndex:kLongestTitle - 1];
  return [[line substringToIndex:cut.location] stringByAppendingString:@"\u2026"];
}

NSString *firstUnits(NSString *text, NSUInteger units) {
  if ([text length] <= units) return text;
  const bool tearsPair = units > 0 && utf16::isHighSurrogate([text characterAtIndex:units - 1]) &&
                         utf16::isLowSurrogate([text characterAtIndex:units]);
  return [text substringToIndex:tearsPair ? units - 1 : units];
}

NSString *percentEscaped(NSString *text) {
  if (text == nil) return nil;
  // Besides all that is never legal in a URL, what is legal there with a meaning of its own.
  NSString *const alsoEscaped = @"!*'();:@&=+$,/?%#[] ";
  // The platform escapes nothing of a text that UTF-8 cannot hold.
  NSString *const wellFormed = utf16::stringOf(utf16::wellFormed(utf16::unitsOf(text)));
  CFStringRef const escaped = CFURLCreateStringByAddingPercentEscapes(
      nullptr, (CFStringRef)wellFormed, nullptr, (CFStringRef)alsoEscaped, kCFStringEncodingUTF8);
  return [(NSString *)escaped autorelease];
}
