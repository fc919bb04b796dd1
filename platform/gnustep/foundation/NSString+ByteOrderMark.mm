#import <Foundation/Foundation.h>

#include <algorithm>
#include <vector>

#import "platform/gnustep/runtime/MethodReplacement.h"

/// The string of characters of which the first is one that begins texts in files, U+FEFF or its
/// mirror image, as on the Mac: it is a character like any other. The platform drops it, and in the
/// second case swaps the bytes of all that follows. Only in immutable strings: no mutable one is
/// made of characters here.
@interface NSString (ByteOrderMark)
@end

namespace {

constinit platform::ReplacedMethod<id(const unichar *, NSUInteger)> platformStringWithCharacters;

bool mayBeByteOrderMark(unichar character) {
  return character == 0xFEFF || character == 0xFFFE;
}

}  // namespace

@implementation NSString (ByteOrderMark)

+ (void)load {
  platformStringWithCharacters.install(object_getClass(self),
                                       @selector(stringWithCharacters:length:),
                                       @selector(stringWithLiteralCharacters:length:));
}

+ (id)stringWithLiteralCharacters:(const unichar *)characters length:(NSUInteger)length {
  if (length == 0 || !mayBeByteOrderMark(characters[0])) {
    return platformStringWithCharacters(self, _cmd, characters, length);
  }
  std::vector<unichar> behindAnother(length + 1, ' ');
  std::copy_n(characters, length, behindAnother.begin() + 1);
  return [platformStringWithCharacters(self, _cmd, behindAnother.data(), length + 1)
      substringFromIndex:1];
}

@end
