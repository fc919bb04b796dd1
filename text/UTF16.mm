#import "text/Pieces.h"

#import "text/UTF16.h"

namespace agent {

NSArray *piecesOf(NSString *text, unichar separator) {
  if (text == nil) return nil;
  const std::u16string units = utf16::unitsOf(text);
  const std::u16string_view all = units;
  NSMutableArray *const pieces = [NSMutableArray array];
  for (size_t start = 0;;) {
    const size_t end = all.find(separator, start);
    [pieces addObject:utf16::stringOf(all.substr(start, end - start))];
    if (end == all.npos) return pieces;
    start = end + 1;
  }
}

}  // namespace agent
