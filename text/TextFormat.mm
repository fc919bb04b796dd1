#import "text/TextFormat.h"

#include <algorithm>
#include <array>

namespace {

/// One thing that the format step replaces.
struct Conversion {
  NSString *written;
  bool takesArgument;
};

const std::array<Conversion, 3> kConversions = {{{@"%%", false}, {@"%@", true}, {@"%1$@", true}}};

bool standsAt(NSString *text, NSUInteger place, NSString *written) {
  const NSRange rest = NSMakeRange(place, [text length] - place);
  return
      [text rangeOfString:written options:NSLiteralSearch | NSAnchoredSearch range:rest].location ==
      place;
}

}  // namespace

NSString *formatted(NSString *text, NSString *argument) {
  NSMutableString *const result = [NSMutableString string];
  NSUInteger place = 0;
  while (place < [text length]) {
    const NSRange rest = NSMakeRange(place, [text length] - place);
    const NSRange percent = [text rangeOfString:@"%" options:NSLiteralSearch range:rest];
    if (percent.location == NSNotFound) break;
    [result appendString:[text substringWithRange:NSMakeRange(place, percent.location - place)]];
    place = percent.location;
    const auto *const found =
        std::find_if(kConversions.begin(), kConversions.end(), [&](const Conversion &conversion) {
          return standsAt(text, place, conversion.written) &&
                 (!conversion.takesArgument || argument != nil);
        });
    if (found == kConversions.end()) {
      [result appendString:@"%"];
      place += 1;
      continue;
    }
    [result appendString:found->takesArgument ? argument : @"%"];
    if (found->takesArgument) argument = nil;
    place += [found->written length];
  }
  if (place < [text length]) [result appendString:[text substringFromIndex:place]];
  return result;
}
