#import "text/UTF16.h"

namespace utf16 {

NSArray *splitString(NSString *text, unichar separator) {
  if (text == nil) return nil;
  const std::u16string units = unitsOf(text);
  const std::u16string_view all = units;
  NSMutableArray *const parts = [NSMutableArray array];
  for (size_t start = 0;;) {
    const size_t end = all.find(separator, start);
    [parts addObject:stringOf(all.substr(start, end - start))];
    if (end == all.npos) return parts;
    start = end + 1;
  }
}

}  // namespace utf16
