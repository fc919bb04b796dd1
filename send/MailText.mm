#import "send/MailText.h"

#include <string>

#import "agent/UTF16.h"

namespace {

constexpr char16_t kReplacement = u'\uFFFD';

bool isHigh(char16_t unit) {
  return (unit & 0xFC00) == 0xD800;
}
bool isLow(char16_t unit) {
  return (unit & 0xFC00) == 0xDC00;
}

/// The text with each half of a surrogate pair that stands alone replaced: the platform escapes
/// nothing of a text that UTF-8 cannot hold.
NSString *wellFormed(NSString *text) {
  std::u16string units = utf16::unitsOf(text);
  bool isChanged = false;
  for (size_t i = 0; i < units.size(); ++i) {
    if (isHigh(units[i]) && i + 1 < units.size() && isLow(units[i + 1])) {
      ++i;
    } else if (isHigh(units[i]) || isLow(units[i])) {
      units[i] = kReplacement;
      isChanged = true;
    }
  }
  return isChanged ? utf16::stringOf(units) : text;
}

}  // namespace

NSString *firstUnits(NSString *text, NSUInteger units) {
  if ([text length] <= units) return text;
  const bool tearsPair = units > 0 && isHigh([text characterAtIndex:units - 1]) &&
                         isLow([text characterAtIndex:units]);
  return [text substringToIndex:tearsPair ? units - 1 : units];
}

NSString *percentEscaped(NSString *text) {
  if (text == nil) return nil;
  // Besides all that is never legal in a URL, what is legal there with a meaning of its own.
  NSString *const alsoEscaped = @"!*'();:@&=+$,/?%#[] ";
  CFStringRef const escaped =
      CFURLCreateStringByAddingPercentEscapes(nullptr, (CFStringRef)wellFormed(text), nullptr,
                                              (CFStringRef)alsoEscaped, kCFStringEncodingUTF8);
  return [(NSString *)escaped autorelease];
}
