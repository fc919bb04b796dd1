#import "text/TextConversion.h"

#import "text/UTF16.h"

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
