#import "text/SingleLine.h"

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

}  // namespace

NSString *singleLine(NSString *text) {
  return [[text componentsSeparatedByCharactersInSet:controls()] componentsJoinedByString:@" "];
}
