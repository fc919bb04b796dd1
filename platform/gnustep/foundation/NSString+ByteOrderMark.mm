#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#include <algorithm>

#import "platform/gnustep/runtime/MethodReplacement.h"

/// Strings of characters of which the first is one that begins texts in files, U+FEFF or its mirror
/// image, as on the Mac: it is a character like any other. The platform drops it, and in the second
/// case swaps the bytes of all that follows, also where it makes a string of another one, for
/// example a mutable copy.
@interface NSString (ByteOrderMark)
@end

namespace {

constexpr unichar kMark = 0xFEFF;
constexpr unichar kSwappedMark = 0xFFFE;

constinit platform::ReplacedMethod<id(const unichar *, NSUInteger)> platformInit;
using NoCopy = platform::ReplacedMethod<id(unichar *, NSUInteger, BOOL)>;
constinit NoCopy platformInitNoCopy;
constinit NoCopy platformInitMutableNoCopy;
using Copying = platform::ReplacedMethod<id(NSZone *)>;
constinit Copying platformMutableCopy;
constinit Copying platformMutableCopyOfMutable;

bool beginsWithMark(const unichar *characters, NSUInteger length) {
  return length > 0 && (characters[0] == kMark || characters[0] == kSwappedMark);
}

/// A copy for a string to own, behind room for so many characters more.
unichar *copyOf(const unichar *characters, NSUInteger length, NSUInteger room) {
  auto *const copy = static_cast<unichar *>(
      NSZoneMalloc(NSDefaultMallocZone(), (room + length) * sizeof(unichar)));
  std::copy_n(characters, length, copy + room);
  return copy;
}

id initWithCharacters(id self, SEL selector, const unichar *characters, NSUInteger length) {
  if (!beginsWithMark(characters, length)) return platformInit(self, selector, characters, length);
  return [self initWithCharactersNoCopy:copyOf(characters, length, 0)
                                 length:length
                           freeWhenDone:YES];
}

/// Gives the platform a mark that it can drop. The string owns a copy then, so the characters are
/// freed where it was to own them.
template <const NoCopy &former>
id initWithCharactersNoCopy(id self, SEL selector, unichar *characters, NSUInteger length,
                            BOOL freeWhenDone) {
  if (!beginsWithMark(characters, length)) {
    return former(self, selector, characters, length, freeWhenDone);
  }
  unichar *const copy = copyOf(characters, length, 1);
  *copy = kMark;
  if (freeWhenDone) NSZoneFree(NSZoneFromPointer(characters), characters);
  return former(self, selector, copy, length + 1, YES);
}

template <const Copying &former>
id mutableCopyWithZone(id self, SEL selector, NSZone *zone) {
  const unichar first = [self length] == 0 ? 0 : [self characterAtIndex:0];
  if (!beginsWithMark(&first, 1)) return former(self, selector, zone);
  return [[NSMutableString allocWithZone:zone] initWithString:self];
}

id mutableCopy(id self, SEL) {
  return [self mutableCopyWithZone:NSDefaultMallocZone()];
}

/// Only where the class has such a method of its own.
template <class Method, class Function>
void replaceOwn(Method &method, Class cls, SEL selector, Function replacement) {
  if (platform::hasOwnMethod(cls, selector)) method.install(cls, selector, replacement);
}

template <const Copying &former>
void replaceMutableCopy(Copying &method, Class cls) {
  replaceOwn(method, cls, @selector(mutableCopyWithZone:), mutableCopyWithZone<former>);
  if (method.isInstalled()) {
    platform::replaceMethod(cls, @selector(mutableCopy), reinterpret_cast<IMP>(mutableCopy));
  }
}

}  // namespace

@implementation NSString (ByteOrderMark)

+ (void)load {
  platformInit.install(self, @selector(initWithCharacters:length:), initWithCharacters);
  const SEL noCopy = @selector(initWithCharactersNoCopy:length:freeWhenDone:);
  platformInitNoCopy.install(self, noCopy, initWithCharactersNoCopy<platformInitNoCopy>);
  // The classes of all strings that need two bytes a character, and of all mutable ones.
  Class const wide = objc_getClass("GSUnicodeString");
  Class const mutableStrings = objc_getClass("GSMutableString");
  replaceOwn(platformInitMutableNoCopy, mutableStrings, noCopy,
             initWithCharactersNoCopy<platformInitMutableNoCopy>);
  replaceMutableCopy<platformMutableCopy>(platformMutableCopy, wide);
  replaceMutableCopy<platformMutableCopyOfMutable>(platformMutableCopyOfMutable, mutableStrings);
}

@end
